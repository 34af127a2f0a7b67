// SPDX-License-Identifier: MIT
// Compares the imaging library with its peers, or reads a former comparison, and writes the results.
#include "bench/imaging/contests.h"
#include "bench/imaging/report.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sched.h>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

namespace {

constexpr char kUsage[] =
    "usage: bench_imaging [--filter REGEX] [--rounds N] [--milliseconds T] [--cpu N] [--csv FILE]\n"
    "                     [--markdown FILE]\n"
    "       bench_imaging --from FILE [--markdown FILE]\n"
    "\n"
    "Contests are named operation/family/destination/size, for example Normal/array/opaque/rows.\n"
    "  --filter        runs the contests whose names match (default: all)\n"
    "  --rounds        how often each contender has its turn (default: 15)\n"
    "  --milliseconds  how long a turn is (default: 2)\n"
    "  --cpu           the processor to stay on (default: the last one)\n"
    "  --csv           writes every result to FILE\n"
    "  --markdown      writes the tables to FILE\n"
    "  --from          measures nothing and takes the results from FILE, which --csv has written\n";

struct Arguments {
    std::string filter = ".";
    std::string from;
    std::string csv;
    std::string markdown;
    int rounds = 15;
    double milliseconds = 2;
    int cpu = static_cast<int>(sysconf(_SC_NPROCESSORS_ONLN)) - 1;
};

Arguments parse(int count, char** arguments) {
    Arguments parsed;
    for (int i = 1; i < count; i += 2) {
        const std::string option = arguments[i];
        if (option == "--help") {
            std::fputs(kUsage, stdout);
            std::exit(0);
        }
        if (i + 1 == count)
            throw std::invalid_argument(option + " needs a value\n" + kUsage);
        const std::string value = arguments[i + 1];
        if (option == "--filter")
            parsed.filter = value;
        else if (option == "--from")
            parsed.from = value;
        else if (option == "--csv")
            parsed.csv = value;
        else if (option == "--markdown")
            parsed.markdown = value;
        else if (option == "--rounds")
            parsed.rounds = std::stoi(value);
        else if (option == "--milliseconds")
            parsed.milliseconds = std::stod(value);
        else if (option == "--cpu")
            parsed.cpu = std::stoi(value);
        else
            throw std::invalid_argument("unknown option " + option + "\n" + kUsage);
    }
    if (parsed.rounds < 1)
        throw std::invalid_argument("--rounds needs at least 1");
    return parsed;
}

void stay_on(int cpu) {
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(static_cast<std::size_t>(cpu), &set);
    if (sched_setaffinity(0, sizeof set, &set) != 0)
        throw std::runtime_error("cannot stay on processor " + std::to_string(cpu));
}

// The processor's name, as Linux has it.
std::string processor_name() {
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("model name"))
            return line.substr(line.find(':') + 2);
    return "unknown processor";
}

Record measure(const Arguments& arguments) {
    stay_on(arguments.cpu);
    Runner runner({std::regex(arguments.filter), arguments.rounds, arguments.milliseconds});
    run_composition_contests(runner);
    run_resampling_contests(runner);
    run_noise_contests(runner);
    run_drawing_contests(runner);
    run_operation_contests(runner);
    if (runner.Finished().empty())
        throw std::runtime_error("no contest matches " + arguments.filter);
    const std::time_t now = std::time(nullptr);
    std::ostringstream conditions;
    conditions << "Measured on " << std::put_time(std::gmtime(&now), "%Y-%m-%d") << ", " << processor_name()
               << ", one of " << sysconf(_SC_NPROCESSORS_ONLN) << " processors, " << arguments.rounds
               << " rounds.";
    return {conditions.str(), runner.Finished()};
}

Record read(const std::string& path) {
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error("cannot read " + path);
    return read_csv(file);
}

void write_markdown(std::ostream& out, const Record& record) {
    out << record.conditions << "\n\n## Goals\n\n";
    write_goals(out, record.results);
    out << "\n## Modes\n\n"
           "How many times as fast as the fastest peer the library composes a colour (run) and an image "
           "(array), in the\n"
           "second-level cache. Where it says none, no peer takes part.\n\n";
    write_modes(out, record.results);
    out << "\n## Contests\n\n";
    write_contests(out, record.results);
}

// Has `write` fill the file at `path`; an empty path asks for none.
void write_file(const std::string& path, const std::function<void(std::ostream&)>& write) {
    if (path.empty())
        return;
    std::ofstream file(path);
    write(file);
    if (!file.flush())
        throw std::runtime_error("cannot write " + path);
}

void run(const Arguments& arguments) {
    const Record record = arguments.from.empty() ? measure(arguments) : read(arguments.from);
    std::cout << '\n';
    write_goals(std::cout, record.results);
    write_file(arguments.csv, [&](std::ostream& file) { write_csv(file, record); });
    write_file(arguments.markdown, [&](std::ostream& file) { write_markdown(file, record); });
}

}  // namespace

void Runner::Run(Contest contest) {
    _finished.push_back(contest.Run(_options.rounds, _options.milliseconds));
    _finished.back().Print();
}

int main(int count, char** arguments) {
    try {
        run(parse(count, arguments));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_imaging: %s\n", error.what());
        return 1;
    }
}
