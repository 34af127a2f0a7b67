// SPDX-License-Identifier: MIT
#include "bench/imaging/contest.h"

#include "tests/support/levels.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <optional>
#include <stdexcept>

namespace {

using Clock = std::chrono::steady_clock;

// A contender whose passes have taken this long takes no part in the rounds after the third.
constexpr double kEnoughMicroseconds = 3e5;

double processor_microseconds() {
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

double quantile(const std::vector<double>& sorted, double share) {
    return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1) + 0.5)];
}

}  // namespace

Contest::Contest(std::string name, double units, Image* destination)
    : _name(std::move(name)), _units(units), _destination(destination) {}

void Contest::Add(Kind kind, std::string name, Picture picture, Step pass, Step restore) {
    _contenders.push_back(
        {{std::move(name), kind, 0, 0, std::nullopt}, picture, std::move(pass), std::move(restore), {}});
}

void Contest::AddOwn(Picture picture, const Step& pass, const Step& restore, const Step& reveal) {
    std::vector<Level> levels = Levels();
    std::reverse(levels.begin(), levels.end());
    for (const Level level : levels) {
        const bool newest = level == DetectedLevel();
        Add(
            newest ? Kind::kOurs : Kind::kLevel,
            newest ? "ksimaging" : std::string("ksimaging ") + NameOf(level), picture,
            [level, pass] {
                const ScopedLevel held(level);
                pass();
            },
            restore);
        _contenders.back().reveal = reveal;
    }
}

// Returns the microseconds of the fastest pass of one turn.
double Contest::BestPass(const Contender& contender, double milliseconds) {
    double best = HUGE_VAL;
    const auto end = Clock::now() + std::chrono::duration<double, std::milli>(milliseconds);
    do {
        if (contender.restore)
            contender.restore();
        const double processor_start = processor_microseconds();
        const auto start = Clock::now();
        contender.pass();
        const double elapsed = std::chrono::duration<double, std::micro>(Clock::now() - start).count();
        // Asking for the processor's time takes long, but it leaves out what other processes took. It is that
        // of all threads: Qt hands large images to a pool of them.
        const double microseconds = std::min(elapsed, processor_microseconds() - processor_start);
        best = std::min(best, microseconds);
    } while (Clock::now() < end);
    return best;
}

void Contest::ComparePictures() {
    std::optional<Image> first;
    for (Contender& contender : _contenders) {
        if (!_destination) {
            contender.pass();
            continue;
        }
        if (contender.restore)
            contender.restore();
        else
            _destination->Fill(0);
        const Image before = *_destination;
        contender.pass();
        if (contender.reveal)
            contender.reveal();
        if (changed_pixels(before, *_destination) == 0)
            throw std::runtime_error(_name + ": " + contender.figure.name + " drew nothing");
        if (contender.picture == Picture::kUnrelated)
            continue;
        if (!first)
            first = *_destination;
        if (contender.picture == Picture::kSame && changed_pixels(*first, *_destination) != 0)
            throw std::runtime_error(_name + ": " + contender.figure.name + " drew another picture");
        contender.figure.difference = mean_difference(
            premultiplied(*first),
            contender.picture == Picture::kPremultiplied ? *_destination : premultiplied(*_destination));
    }
}

Result Contest::Run(int rounds, double milliseconds) {
    ComparePictures();
    std::vector<std::vector<double>> times(_contenders.size());
    std::vector<double> spent(_contenders.size());
    for (int round = 0; round < rounds; ++round)
        for (std::size_t i = 0; i < _contenders.size(); ++i) {
            if (round >= 3 && spent[i] > kEnoughMicroseconds)
                continue;
            times[i].push_back(BestPass(_contenders[i], milliseconds));
            spent[i] += times[i].back();
        }
    Result result{_name, {}};
    for (std::size_t i = 0; i < _contenders.size(); ++i) {
        std::sort(times[i].begin(), times[i].end());
        const double median = quantile(times[i], 0.5);
        Figure& figure = result.figures.emplace_back(_contenders[i].figure);
        figure.rate = _units / median;
        figure.spread = (quantile(times[i], 0.75) - quantile(times[i], 0.25)) / 2 / median;
    }
    return result;
}
