// SPDX-License-Identifier: MIT
// Runs contests in interleaved rounds.
#include "bench/imaging/contest.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <stdexcept>

namespace {

using Clock = std::chrono::steady_clock;

// A contender whose passes have taken this long sits the rounds after the third out.
constexpr double kEnoughMicroseconds = 3e5;

double processor_microseconds() {
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

// Returns the microseconds of the fastest pass of one turn.
double best_pass(const Contender& contender, double milliseconds) {
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

double quantile(const std::vector<double>& sorted, double share) {
    return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1) + 0.5)];
}

std::string fixed(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

}  // namespace

Contest::Contest(std::string name, double units, Image* result)
    : _name(std::move(name)), _units(units), _result(result) {}

Contender& Contest::Add(std::string name, Picture picture, std::function<void()> pass,
                        std::function<void()> restore) {
    _contenders.push_back(
        {std::move(name), std::move(pass), std::move(restore), picture, {}, 0, 0, std::nullopt});
    return _contenders.back();
}

void Contest::CompareResults() {
    std::optional<Image> first;
    for (Contender& contender : _contenders) {
        if (!_result) {
            contender.pass();
            continue;
        }
        if (contender.restore)
            contender.restore();
        else
            _result->Fill(0);
        const Image before = *_result;
        contender.pass();
        if (contender.reveal)
            contender.reveal();
        if (changed_pixels(before, *_result) == 0)
            throw std::runtime_error(_name + ": " + contender.name + " drew nothing");
        if (contender.picture == Picture::kUnrelated)
            continue;
        if (!first)
            first = *_result;
        if (contender.picture == Picture::kSame && changed_pixels(*first, *_result) != 0)
            throw std::runtime_error(_name + ": " + contender.name + " drew another picture");
        contender.difference = contender.picture == Picture::kPremultiplied
                                   ? mean_difference(premultiplied(*first), *_result)
                                   : mean_difference(premultiplied(*first), premultiplied(*_result));
    }
}

void Contest::Run(int rounds, double milliseconds) {
    CompareResults();
    std::vector<std::vector<double>> times(_contenders.size());
    std::vector<double> spent(_contenders.size());
    for (int round = 0; round < rounds; ++round)
        for (std::size_t i = 0; i < _contenders.size(); ++i) {
            if (round >= 3 && spent[i] > kEnoughMicroseconds)
                continue;
            times[i].push_back(best_pass(_contenders[i], milliseconds));
            spent[i] += times[i].back();
        }
    for (std::size_t i = 0; i < _contenders.size(); ++i) {
        std::sort(times[i].begin(), times[i].end());
        const double median = quantile(times[i], 0.5);
        _contenders[i].rate = _units / median;
        _contenders[i].spread = (quantile(times[i], 0.75) - quantile(times[i], 0.25)) / 2 / median;
    }
}

std::optional<double> Contest::RateOf(const std::string& name) const {
    const auto found = std::find_if(_contenders.begin(), _contenders.end(),
                                    [&](const Contender& contender) { return contender.name == name; });
    return found == _contenders.end() ? std::nullopt : std::optional(found->rate);
}

void Contest::Print() const {
    std::printf("\n%-44s %10s %8s %8s %11s\n", _name.c_str(), "Mpixel/s", "ratio", "spread", "difference");
    for (const Contender& contender : _contenders)
        std::printf("  %-42s %10.1f %8.2f %7.1f%% %11s\n", contender.name.c_str(), contender.rate,
                    _contenders.front().rate / contender.rate, contender.spread * 100,
                    contender.difference ? fixed(*contender.difference).c_str() : "");
    std::fflush(stdout);
}
