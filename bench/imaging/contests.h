// SPDX-License-Identifier: MIT
// The contests by subject, and the runner that they hand their contests to.
#pragma once

#include "bench/imaging/contest.h"

#include <regex>

struct Options {
    std::regex filter;  // the contests to run, by name
    int rounds = 15;
    double milliseconds = 2;  // of each contender's turn in a round
};

// Runs the contests that are asked for, prints each and keeps the results.
class Runner {
public:
    explicit Runner(Options options) : _options(std::move(options)) {}

    // Returns whether a contest of this name is asked for; large images are made only then.
    bool Wants(const std::string& name) const { return std::regex_search(name, _options.filter); }
    void Run(Contest contest);

    const std::vector<Result>& Finished() const { return _finished; }

private:
    Options _options;
    std::vector<Result> _finished;
};

void run_composition_contests(Runner& runner);
void run_resampling_contests(Runner& runner);
void run_noise_contests(Runner& runner);
void run_drawing_contests(Runner& runner);
void run_operation_contests(Runner& runner);
