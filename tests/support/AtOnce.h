#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <future>
#include <support/Bits.h>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

/// @file
/// What several threads do at the same time. Sources that include this one are built for the thread sanitizer.

namespace ovrix
{
namespace test
{

/// Calls `work(i)` for each i below `nbThreads`, each on a thread of its own; no call begins before all threads are
/// there. Returns when all calls have ended, and throws what the first of them threw.
template <class Work>
void runAtOnce(std::size_t nbThreads, const Work& work)
{
    std::promise<void> start;
    const std::shared_future<void> started(start.get_future());
    std::vector<std::future<void>> calls;
    calls.reserve(nbThreads);
    try
    {
        for (std::size_t i = 0; i < nbThreads; ++i)
            calls.push_back(std::async(std::launch::async,
                                       [&work, started, i]
                                       {
                                           started.wait();
                                           work(i);
                                       }));
    }
    catch (...)
    {
        start.set_value(); // calls are waited for when their futures go
        throw;
    }
    start.set_value();
    for (std::future<void>& call : calls)
        call.get();
}

/// All numbers of an outcome, one after the other, by their bits.
using Outcome = std::vector<std::uint64_t>;

template <class First, class Second>
void addTo(Outcome& outcome, const std::pair<First, Second>& value);

/// Adds a number, or a sequence of whatever can be added.
template <class T>
void addTo(Outcome& outcome, const T& value)
{
    if constexpr (std::is_floating_point<T>::value)
    {
        outcome.push_back(bitsOf(static_cast<double>(value)));
    }
    else if constexpr (std::is_arithmetic<T>::value || std::is_enum<T>::value)
    {
        outcome.push_back(static_cast<std::uint64_t>(value));
    }
    else
    {
        outcome.push_back(value.size());
        for (const auto& element : value)
            addTo(outcome, element);
    }
}

/// Adds both values.
template <class First, class Second>
void addTo(Outcome& outcome, const std::pair<First, Second>& value)
{
    addTo(outcome, value.first);
    addTo(outcome, value.second);
}

/// The outcome that consists of these values.
template <class... Values>
Outcome outcomeOf(const Values&... values)
{
    Outcome outcome;
    (addTo(outcome, values), ...);
    return outcome;
}

constexpr std::size_t g_nbThreads = 4; ///< of expectSameAtOnce()

/// For each thread of expectSameAtOnce() what `make` returns for its number.
template <class Make>
auto forEachThread(const Make& make)
{
    std::vector<decltype(make(0u))> made;
    for (unsigned int thread = 0; thread < g_nbThreads; ++thread)
        made.push_back(make(thread));
    return made;
}

/// Expects `compute(i)` to have the outcome on thread i of four, again and again at the same time, that it has alone.
/// The outcomes for different i should differ, so that a mix-up shows. It is alone at the end, so that nothing is there
/// at the beginning that a first call leaves behind.
template <class Compute>
void expectSameAtOnce(const Compute& compute, int nbRounds = 300)
{
    std::vector<Outcome> first(g_nbThreads);
    std::vector<int> nbSame(g_nbThreads, 1);
    runAtOnce(g_nbThreads,
              [&](std::size_t i)
              {
                  first[i] = compute(i);
                  for (int round = 1; round < nbRounds; ++round)
                      nbSame[i] += compute(i) == first[i];
              });
    EXPECT_EQ(nbSame, std::vector<int>(g_nbThreads, nbRounds));
    for (std::size_t i = 0; i < g_nbThreads; ++i)
        EXPECT_TRUE(compute(i) == first[i]) << "thread " << i;
}

} // namespace test
} // namespace ovrix
