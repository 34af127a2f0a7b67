// SPDX-License-Identifier: MIT
#include "bench/imaging/report.h"

#include <iomanip>
#include <map>
#include <ostream>

namespace {

constexpr const char* kPlaces[] = {"/run/opaque/rows",   "/run/translucent/rows",   "/run/mixed/rows",
                                   "/array/opaque/rows", "/array/translucent/rows", "/array/mixed/rows"};

void write_rate(std::ostream& out, const Figure* figure) {
    out << " | ";
    if (figure)
        out << std::setprecision(figure->rate < 10 ? 1 : 0) << figure->rate;
}

void write_peer(std::ostream& out, const Result& result) {
    if (const Figure* peer = result.Fastest("peer"))
        out << std::setprecision(2) << result.RatioTo(*peer) << " × " << peer->name;
    else
        out << "none";
}

}  // namespace

void write_modes(std::ostream& out, const std::vector<Result>& results) {
    std::map<std::string, const Result*> by_name;
    for (const Result& result : results)
        by_name[result.contest] = &result;
    out << std::fixed
        << "| Mode | colour on opaque | on translucent | on mixed | image on opaque | on translucent | on "
           "mixed |\n"
           "|---|---|---|---|---|---|---|\n";
    for (const Result& result : results) {
        const std::string mode = result.contest.substr(0, result.contest.find('/'));
        if (result.contest != mode + kPlaces[0])
            continue;
        out << "| " << mode;
        for (const char* place : kPlaces) {
            out << " | ";
            if (const auto found = by_name.find(mode + place); found != by_name.end())
                write_peer(out, *found->second);
        }
        out << " |\n";
    }
}

void write_contests(std::ostream& out, const std::vector<Result>& results) {
    out << std::fixed
        << "| Contest (Mpixel/s) | ksimaging | AVX2 | baseline | memcpy, memset | fastest peer | | times |\n"
           "|---|---:|---:|---:|---:|---:|---|---:|\n";
    for (const Result& result : results) {
        out << "| " << result.contest;
        for (const char* name : {"ksimaging", "ksimaging avx2", "ksimaging baseline"})
            write_rate(out, result.Fastest(name));
        const Figure* filled = result.Fastest("memset");
        write_rate(out, filled ? filled : result.Fastest("memcpy"));
        const Figure* peer = result.Fastest("peer");
        write_rate(out, peer);
        out << " | " << (peer ? peer->name : "") << " | ";
        if (peer)
            out << std::setprecision(2) << result.RatioTo(*peer);
        out << " |\n";
    }
}
