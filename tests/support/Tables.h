#pragma once

#include <OVRIXMath/Types.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace ovrix
{
namespace test
{

/// A table of measurements of tests/data/tables.
struct MeasurementTable
{
    math::DataSet samples;
    std::vector<unsigned int> classes;
};

/// Reads a table: a first line with number of samples and of measurements, then one line per sample, its class last.
inline MeasurementTable readMeasurements(const std::string& name)
{
    std::ifstream file(std::string(OVRIX_TEST_DATA_DIR) + "/tables/" + name);
    std::size_t nbSamples = 0;
    std::size_t nbMeasurements = 0;
    char comma = 0;
    std::string names;
    file >> nbSamples >> comma >> nbMeasurements;
    std::getline(file, names);
    MeasurementTable table;
    for (std::size_t i = 0; i < nbSamples; ++i)
    {
        math::Vector sample(nbMeasurements);
        for (double& measurement : sample)
            file >> measurement >> comma;
        unsigned int label = 0;
        file >> label;
        table.samples.push_back(sample);
        table.classes.push_back(label);
    }
    if (!file)
        throw std::runtime_error("Cannot read the table " + name);
    return table;
}

} // namespace test
} // namespace ovrix
