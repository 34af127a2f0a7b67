// SPDX-License-Identifier: MIT
// Writes the results.
#include "bench/imaging/report.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <regex>

namespace {

// A peer that does the same work: not the library, memory traffic, plain code, or functions without alpha.
const Contender* fastest_peer(const Contest& contest) {
    static const std::regex others("ksimaging.*|memcpy|memset|plain C\\+\\+|pixel kernel|pixman OVER|radius "
                                   ".*|the tool.*|.*channels only.");
    const Contender* fastest = nullptr;
    for (const Contender& contender : contest.Contenders())
        if (!std::regex_match(contender.name, others) && (!fastest || contender.rate > fastest->rate))
            fastest = &contender;
    return fastest;
}

void write_rate(std::ostream& out, std::optional<double> rate) {
    out << " | ";
    if (rate)
        out << std::setprecision(*rate < 10 ? 1 : 0) << *rate;
}

}  // namespace

void write_summary(std::ostream& out, const std::vector<Contest>& contests) {
    out << std::fixed
        << "| Contest (Mpixel/s) | ksimaging | AVX2 | baseline | memcpy, memset | fastest peer | | times |\n"
           "|---|---:|---:|---:|---:|---:|---|---:|\n";
    for (const Contest& contest : contests) {
        out << "| " << contest.Name();
        for (const char* name : {"ksimaging", "ksimaging AVX2", "ksimaging baseline"})
            write_rate(out, contest.RateOf(name));
        const auto filled = contest.RateOf("memset");
        write_rate(out, filled ? filled : contest.RateOf("memcpy"));
        const Contender* peer = fastest_peer(contest);
        write_rate(out, peer ? std::optional(peer->rate) : std::nullopt);
        out << " | " << (peer ? peer->name : "") << " | ";
        if (peer)
            out << std::setprecision(2) << contest.Contenders().front().rate / peer->rate;
        out << " |\n";
    }
}

void write_csv(std::ostream& out, const std::vector<Contest>& contests) {
    out << "contest,contender,mpixel_per_second,ratio,spread,difference\n";
    for (const Contest& contest : contests)
        for (const Contender& contender : contest.Contenders()) {
            out << contest.Name() << ',' << contender.name << ',' << contender.rate << ','
                << contest.Contenders().front().rate / contender.rate << ',' << contender.spread << ',';
            if (contender.difference)
                out << *contender.difference;
            out << '\n';
        }
}
