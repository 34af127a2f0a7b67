// SPDX-License-Identifier: MIT
#include "bench/imaging/result.h"

#include <algorithm>
#include <cstdio>
#include <istream>
#include <iterator>
#include <ostream>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace {

constexpr const char* kKinds[] = {"ours",   "level", "plain",
                                  "memory", "peer",  "other"};  // in the order of Kind
constexpr char kHeader[] = "contest,contender,kind,mpixel_per_second,ratio,spread,difference";

const char* name_of(Kind kind) {
    return kKinds[static_cast<std::size_t>(kind)];
}

Kind kind_of(const std::string& name) {
    const auto found = std::find(std::begin(kKinds), std::end(kKinds), name);
    if (found == std::end(kKinds))
        throw std::invalid_argument(name);
    return static_cast<Kind>(found - std::begin(kKinds));
}

std::string fixed(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

void read_line(const std::string& line, Record& record) {
    std::vector<std::string> fields;
    std::istringstream in(line + ',');
    for (std::string field; std::getline(in, field, ',');)
        fields.push_back(field);
    if (fields.size() != 7)
        throw std::invalid_argument(line);
    Figure figure{fields[1], kind_of(fields[2]), std::stod(fields[3]), std::stod(fields[5]), std::nullopt};
    if (!fields[6].empty())
        figure.difference = std::stod(fields[6]);
    if (record.results.empty() || record.results.back().contest != fields[0])
        record.results.push_back({fields[0], {}});
    record.results.back().figures.push_back(std::move(figure));
}

}  // namespace

const Figure* Result::Fastest(const std::string& name_or_kind) const {
    const std::regex wanted(name_or_kind);
    const Figure* fastest = nullptr;
    for (const Figure& figure : figures)
        if ((std::regex_match(figure.name, wanted) || std::regex_match(name_of(figure.kind), wanted)) &&
            (!fastest || figure.rate > fastest->rate))
            fastest = &figure;
    return fastest;
}

void Result::Print() const {
    std::printf("\n%-44s %10s %8s %8s %11s\n", contest.c_str(), "Mpixel/s", "ratio", "spread", "difference");
    for (const Figure& figure : figures)
        std::printf("  %-42s %10.1f %8.2f %7.1f%% %11s\n", figure.name.c_str(), figure.rate, RatioTo(figure),
                    figure.spread * 100, figure.difference ? fixed(*figure.difference).c_str() : "");
    std::fflush(stdout);
}

void write_csv(std::ostream& out, const Record& record) {
    out << "# " << record.conditions << '\n' << kHeader << '\n';
    for (const Result& result : record.results)
        for (const Figure& figure : result.figures) {
            out << result.contest << ',' << figure.name << ',' << name_of(figure.kind) << ',' << figure.rate
                << ',' << result.RatioTo(figure) << ',' << figure.spread << ',';
            if (figure.difference)
                out << *figure.difference;
            out << '\n';
        }
}

Record read_csv(std::istream& in) {
    Record record;
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        if (line.starts_with("# "))
            record.conditions = line.substr(2);
        else if (line != kHeader)
            try {
                read_line(line, record);
            } catch (const std::logic_error&) {  // what the numbers' and the kinds' readers throw
                throw std::runtime_error("line " + std::to_string(number) + " is not a result: " + line);
            }
    }
    if (record.results.empty())
        throw std::runtime_error("there are no results in the file");
    return record;
}
