// SPDX-License-Identifier: MIT
// startup <rounds> <results.csv> <program> <peer>...: starts the programs in turn, compares their medians.
//
// Each program is one argument: a command line split at spaces, with leading NAME=VALUE pairs put into its
// environment. The first program's times are judged against the quickest peer's,
// its memory against the first peer's.
#include "window_watch.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>

namespace {

// A window that has not changed for this long has settled. Shorter than the half period of any text cursor.
constexpr double kSettleMs = 400;

struct contestant {
    std::vector<std::string> command;
    std::string name;
    std::vector<start_result> results;
};

contestant ParseContestant(const std::string& text) {
    contestant made;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (made.name.empty() && word.find('=') == std::string::npos)
            made.name = std::filesystem::path(word).filename();
        made.command.push_back(word);
    }
    if (made.name.empty())
        throw std::runtime_error("no program in '" + text + "'");
    return made;
}

template <class Value> double Median(const contestant& of, Value start_result::*value) {
    std::vector<double> values;
    for (const start_result& result : of.results)
        values.push_back(static_cast<double>(result.*value));
    std::sort(values.begin(), values.end());
    const size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double MappedMs(const contestant& of) {
    return Median(of, &start_result::mapped_ms);
}
double PaintedMs(const contestant& of) {
    return Median(of, &start_result::painted_ms);
}
double ProcessorMs(const contestant& of) {
    return Median(of, &start_result::processor_ms);
}
double PeakMb(const contestant& of) {
    return Median(of, &start_result::peak_resident_kb) / 1024;
}
double PssMb(const contestant& of) {
    return Median(of, &start_result::shared_out_kb) / 1024;
}

void RunRounds(WindowWatch& watch, std::vector<contestant>& contestants, int rounds, std::ostream& csv) {
    csv << "round,program,mapped_ms,painted_ms,processor_ms,peak_resident_kb,pss_kb\n";
    for (int round = -1; round < rounds; ++round)
        for (size_t turn = 0; turn < contestants.size(); ++turn) {
            contestant& one = contestants[(turn + round + 1) % contestants.size()];
            const auto result = watch.Start(one.command, kSettleMs);
            if (!result)
                throw std::runtime_error("no window of " + one.name + " settled");
            if (round < 0)
                continue;  // the warm-up: the files come into memory
            one.results.push_back(*result);
            csv << round << ',' << one.name << ',' << result->mapped_ms << ',' << result->painted_ms << ','
                << result->processor_ms << ',' << result->peak_resident_kb << ',' << result->shared_out_kb
                << '\n';
        }
}

void PrintGoal(const char* what, double measured, const char* unit, double goal) {
    std::printf("%-58s %6.2f%s  goal %6.2f%s  %s\n", what, measured, unit, goal, unit,
                measured <= goal ? "reached" : "NOT REACHED");
}

void PrintGoals(const std::vector<contestant>& contestants) {
    const contestant& own = contestants.front();
    double mapped = std::numeric_limits<double>::infinity(), painted = mapped;
    for (size_t peer = 1; peer < contestants.size(); ++peer) {
        mapped = std::min(mapped, MappedMs(contestants[peer]));
        painted = std::min(painted, PaintedMs(contestants[peer]));
    }
    std::printf("\n");
    PrintGoal("exec to window mapped, of the faster peer's", MappedMs(own) / mapped, "", 0.5);
    PrintGoal("exec to first full paint, of the faster peer's", PaintedMs(own) / painted, "", 0.5);
    PrintGoal("peak resident memory (VmHWM)", PeakMb(own), " MB", 40);
    PrintGoal(("peak resident memory, of " + contestants[1].name + "'s").c_str(),
              PeakMb(own) / PeakMb(contestants[1]), "", 1);
}

int Compare(int rounds, const char* csv_path, std::vector<contestant> contestants) {
    std::ofstream csv(csv_path);
    WindowWatch watch;
    RunRounds(watch, contestants, rounds, csv);
    std::printf("%-16s %10s %11s %13s %9s %9s   medians of %d\n", "", "mapped ms", "painted ms",
                "processor ms", "VmHWM MB", "PSS MB", rounds);
    for (const contestant& one : contestants)
        std::printf("%-16s %10.1f %11.1f %13.1f %9.1f %9.1f\n", one.name.c_str(), MappedMs(one),
                    PaintedMs(one), ProcessorMs(one), PeakMb(one), PssMb(one));
    PrintGoals(contestants);
    return csv.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) try {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 0;
    if (argc < 5 || rounds < 1) {
        std::fprintf(stderr, "usage: startup <rounds> <results.csv> <program> <peer>...\n");
        return EXIT_FAILURE;
    }
    std::vector<contestant> contestants;
    for (int argument = 3; argument < argc; ++argument)
        contestants.push_back(ParseContestant(argv[argument]));
    return Compare(rounds, argv[2], std::move(contestants));
} catch (const std::exception& error) {
    std::fprintf(stderr, "startup: %s\n", error.what());
    return EXIT_FAILURE;
}
