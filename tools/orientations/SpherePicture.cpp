#include "SpherePicture.h"

#include "Evenness.h"
#include "Vector3.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iomanip>
#include <numeric>

namespace ovrix
{
namespace orientations
{

namespace
{

constexpr double g_radius = 150.0;
constexpr double g_margin = 14.0;
constexpr double g_captionHeight = 34.0;
constexpr double g_legendHeight = 34.0;

/// Colour of a point with that many neighbours, and its name in the legend.
struct Colour
{
    const char* fill;
    const char* name;
};

constexpr std::array<Colour, 4> g_colours{
    {{"#2e8b57", "4 or fewer neighbours"}, {"#c0392b", "5"}, {"#2c5f8a", "6"}, {"#e0a100", "7 or more"}}};

const Colour& getColour(std::size_t nbNeighbours)
{
    return g_colours[std::clamp<std::size_t>(nbNeighbours, 4, 7) - 4];
}

class Sphere
{
public:
    Sphere(const Panel& panel, double left, std::ostream& stream)
        : _points(panel.points), _division(divideSphere(panel.points)), _nbNeighbours(panel.points.size()),
          _centreX(left + g_margin + g_radius), _centreY(g_margin + g_radius), _stream(stream)
    {
        for (const auto& [i, j] : _division.neighbours)
        {
            ++_nbNeighbours[i];
            ++_nbNeighbours[j];
        }
        stream << "<circle class=\"ball\" cx=\"" << _centreX << "\" cy=\"" << _centreY << "\" r=\"" << g_radius
               << "\"/>\n";
        drawHalf("back", -1.0);
        drawHalf("front", 1.0);
        stream << "<text x=\"" << _centreX << "\" y=\"" << 2.0 * (g_radius + g_margin) + 14.0 << "\">" << panel.caption
               << "</text>\n";
    }

private:
    /// Draws what lies on one side: z of that sign.
    void drawHalf(const char* name, double side)
    {
        _stream << "<g class=\"" << name << "\">\n<path d=\"";
        for (const auto& [i, j] : _division.neighbours)
            drawLine(i, j, side);
        _stream << "\"/>\n";
        for (std::size_t i = 0; i < _points.size(); ++i)
            if (side * _points.z()[i] >= 0.0)
                drawPoint(i);
        _stream << "</g>\n";
    }

    /// The part of the great circle between two points that lies on that side, in straight pieces.
    void drawLine(std::size_t i, std::size_t j, double side)
    {
        const double angle = toAngle(dot(getPoint(_points, i), getPoint(_points, j)));
        const int nbPieces = 1 + static_cast<int>(angle / 0.12);
        bool bDrawing = false;
        for (int piece = 0; piece <= nbPieces; ++piece)
        {
            const double t = static_cast<double>(piece) / nbPieces;
            const double x = (1.0 - t) * _points.x()[i] + t * _points.x()[j];
            const double y = (1.0 - t) * _points.y()[i] + t * _points.y()[j];
            const double z = (1.0 - t) * _points.z()[i] + t * _points.z()[j];
            if (side * z < 0.0)
            {
                bDrawing = false;
                continue;
            }
            const double scale = g_radius / std::sqrt(x * x + y * y + z * z);
            _stream << (bDrawing ? 'L' : 'M') << _centreX + scale * x << ' ' << _centreY - scale * y;
            bDrawing = true;
        }
    }

    /// Points are smaller the further they are away.
    void drawPoint(std::size_t i)
    {
        const double spacing = g_radius * std::sqrt(4.0 * g_pi / static_cast<double>(_points.size()));
        const double size = std::min(8.0, 0.18 * spacing) * (0.75 + 0.25 * _points.z()[i]);
        _stream << "<circle cx=\"" << _centreX + g_radius * _points.x()[i] << "\" cy=\""
                << _centreY - g_radius * _points.y()[i] << "\" r=\"" << size << "\" fill=\""
                << getColour(_nbNeighbours[i]).fill << "\"/>\n";
    }

    const PointSet& _points;
    SphereDivision _division;
    std::vector<std::size_t> _nbNeighbours;
    double _centreX;
    double _centreY;
    std::ostream& _stream;
};

void drawLegend(double width, double height, std::ostream& stream)
{
    const std::array<double, 4> widths{205.0, 50.0, 50.0, 95.0};
    double left = 0.5 * (width - std::accumulate(widths.begin(), widths.end(), 0.0));
    stream << "<g class=\"legend\">\n";
    for (std::size_t i = 0; i < g_colours.size(); ++i)
    {
        stream << "<circle cx=\"" << left << "\" cy=\"" << height - 18.0 << "\" r=\"6\" fill=\"" << g_colours[i].fill
               << "\"/><text x=\"" << left + 12.0 << "\" y=\"" << height - 13.0 << "\">" << g_colours[i].name
               << "</text>\n";
        left += widths[i];
    }
    stream << "</g>\n";
}

} // namespace

void drawSpheres(const std::vector<Panel>& panels, std::ostream& stream)
{
    const double panelWidth = 2.0 * (g_radius + g_margin);
    const double width = panelWidth * static_cast<double>(panels.size());
    const double height = panelWidth + g_captionHeight + g_legendHeight;
    stream << std::fixed << std::setprecision(1);
    stream << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << width << ' ' << height << "\" width=\""
           << width << "\" height=\"" << height << "\">\n"
           << "<style>text{font:15px sans-serif;fill:#333;text-anchor:middle}.legend text{text-anchor:start}"
              ".ball{fill:#f4f7fa;stroke:#c3ccd6}path{fill:none;stroke:#5b6b7a;stroke-width:.8;stroke-opacity:.6}"
              ".back{opacity:.16}</style>\n"
           << "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n";
    for (std::size_t i = 0; i < panels.size(); ++i)
        Sphere(panels[i], panelWidth * static_cast<double>(i), stream);
    drawLegend(width, height, stream);
    stream << "</svg>\n";
}

} // namespace orientations
} // namespace ovrix
