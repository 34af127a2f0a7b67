// SPDX-License-Identifier: MIT
// Contests: contenders that do the same work, timed in turn so that a noisy machine is fair to all of them.
#pragma once

#include "bench/imaging/image.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

// What a contender leaves in the destination.
enum class Picture {
    kSame,           // bit for bit what the first contender leaves
    kStraight,       // its own idea of the same picture
    kPremultiplied,  // the same in premultiplied colour
    kUnrelated,      // other work, there for its speed
};

// One way of doing the work of a contest.
struct Contender {
    std::string name;
    std::function<void()> pass;     // does the work once; timed
    std::function<void()> restore;  // called before each pass, not timed; may be empty
    Picture picture;
    std::function<void()> reveal = {};  // brings what a pass drew elsewhere into the destination; not timed
    double rate = 0;                    // units per microsecond: median over the rounds of the best passes
    double spread = 0;                  // half the distance of the rounds' quartiles, as a share of `rate`
    std::optional<double> difference;   // mean distance of premultiplied channels from the first contender's
};

// What a contest compares, and what came out.
class Contest {
public:
    // `units` is how many pixels one pass works on. `result` is where every contender leaves its picture, or
    // null where there is nothing to look at; it outlives the contest.
    Contest(std::string name, double units, Image* result);

    // Adds a contender and returns it. The first one is the one that the ratios refer to.
    Contender& Add(std::string name, Picture picture, std::function<void()> pass,
                   std::function<void()> restore = {});

    const std::string& Name() const { return _name; }
    const std::vector<Contender>& Contenders() const { return _contenders; }
    bool IsEmpty() const { return _contenders.empty(); }

    // Runs every contender once and compares the results, then `rounds` rounds in which each has its turn of
    // about `milliseconds`, at least one pass. Throws std::runtime_error where a contender drew nothing,
    // or not the same where it must.
    void Run(int rounds, double milliseconds);

    // Returns the rate of the contender of this name, if it takes part.
    std::optional<double> RateOf(const std::string& name) const;

    // Writes the results as a table to standard output.
    void Print() const;

private:
    void CompareResults();

    std::string _name;
    double _units;
    Image* _result;
    std::vector<Contender> _contenders;
};
