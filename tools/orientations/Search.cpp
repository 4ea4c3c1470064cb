#include "Search.h"

#include "BasinHopping.h"
#include "CoulombEnergy.h"
#include "TableText.h"

namespace ovrix
{
namespace orientations
{

namespace
{

using Clock = std::chrono::steady_clock;

/// Hops around the table of one size.
class Visit
{
public:
    Visit(Tables& tables, const SearchState& state, std::uint64_t seed, const SearchListener& onHop,
          const SearchListener& onNewTable)
        : _tables(tables), _state(state), _onHop(onHop), _onNewTable(onNewTable)
    {
        std::seed_seq seeds{seed, seed >> 32, std::uint64_t(state.round), std::uint64_t(state.nbPoints)};
        _generator.seed(seeds);
    }

    void run(std::size_t nbHops, Clock::time_point end)
    {
        const bool bFromTable = hasTable() && _state.round % 2 == 1;
        const PointSet start =
            bFromTable ? PointSet(_tables[_state.nbPoints]) : drawPoints(_state.nbPoints, _generator);
        if (hasTable())
            _state.energy = static_cast<double>(computeExactEnergy(_tables[_state.nbPoints]));
        _onHop(_state);
        BasinHopping hopping(start, _generator, end);
        if (hopping.isOver())
            return;
        keep(hopping);
        for (_state.hop = 1; _state.hop <= nbHops && !hopping.isOver(); ++_state.hop)
        {
            if (hopping.hop())
                keep(hopping);
            _onHop(_state);
        }
    }

private:
    bool hasTable() const
    {
        return _tables.count(_state.nbPoints) != 0;
    }

    /// Makes a table of the best set, unless there is one already that is as good.
    void keep(const BasinHopping& hopping)
    {
        const bool bFirst = !hasTable();
        if (!bFirst && !(hopping.getBestEnergy() < _state.energy - g_significantFall))
            return;
        Records& table = _tables[_state.nbPoints];
        table = makeTable(hopping.getBest(), _generator);
        const double energy = static_cast<double>(computeExactEnergy(table));
        _state.fall = bFirst ? 0.0 : _state.energy - energy;
        _state.energy = energy;
        _onNewTable(_state);
        _state.fall = 0.0;
    }

    Tables& _tables;
    SearchState _state;
    const SearchListener& _onHop;
    const SearchListener& _onNewTable;
    Generator _generator;
};

} // namespace

void search(Tables& tables, const SearchPlan& plan, const SearchListener& onHop, const SearchListener& onNewTable)
{
    const Clock::time_point end = Clock::now() + std::chrono::duration_cast<Clock::duration>(plan.time);
    SearchState state;
    for (std::size_t i = 0; i < plan.nbRounds; ++i)
    {
        state.round = plan.firstRound + i;
        for (const std::size_t nbPoints : plan.sizes)
        {
            if (Clock::now() >= end)
                return;
            state.nbPoints = nbPoints;
            Visit(tables, state, plan.seed, onHop, onNewTable).run(plan.nbHops, end);
        }
    }
}

} // namespace orientations
} // namespace ovrix
