// SPDX-License-Identifier: MIT
// The goals: each holds one contender against the fastest of some rivals, in every contest of a kind.
#include "bench/imaging/report.h"

#include <algorithm>
#include <iomanip>
#include <optional>
#include <ostream>
#include <regex>
#include <string>

namespace {

const std::string kBlendModes =
    "(Multiply|Screen|Add|Subtract|Darkest|Lightest|Difference|Average|Invert|XOR Mask)";

struct Goal {
    std::string text;
    std::string contests;    // an expression over whole names
    std::string rivals;      // an expression over names and kinds of contenders
    double target;           // how many times the fastest rival's speed
    double avx2_target = 0;  // the same held to AVX2; 0 where the goal asks nothing of it
};

std::vector<Goal> goals() {
    std::vector<Goal> result = {
        {"Copy array, memcpy", "Copy/array/.*/rows", "memcpy", 0.95},
        {"Copy run, memset", "Copy/run/.*/rows", "memset", 0.95, 0.8},
        {"Over run, memset", "Over/run/.*/rows", "memset", 0.95, 0.8},
        {"Over array, memcpy", "Over/array/.*/rows", "memcpy", 0.95, 0.65},
        {"Normal run on opaque, pixman", "Normal/run/opaque/rows", "pixman", 2},
        {"Normal array on opaque, pixman", "Normal/array/opaque/rows", "pixman", 2},
        {"Normal on opaque in memory, memcpy", "Normal/.*/opaque/4096", "memcpy", 0.95},
        {"Normal array on translucent and mixed, pixman", "Normal/array/(translucent|mixed)/rows", "pixman",
         0.9},
        {"Normal run on translucent and mixed, pixman", "Normal/run/(translucent|mixed)/rows", "pixman", 1},
    };
    for (const char* mode : {"Multiply", "Screen", "Add", "Subtract", "Darkest", "Lightest", "Difference",
                             "Average", "Invert", "XOR Mask"})
        result.push_back(
            {std::string(mode) + ", fastest peer that has it", std::string(mode) + "/.*/rows", "peer", 5});
    const std::vector<Goal> rest = {
        {"Blending modes on opaque, pixman OVER", kBlendModes + "/.*/opaque/rows", "pixman OVER", 1.5},
        {"Replace modes, without vectors", "Replace .*/rows", "plain", 12, 9},
        {"Erase, memcpy", "Erase/.*/rows", "memcpy", 0.35, 0.25},
        {"Alpha Mask array, memcpy", "Alpha Mask/array/.*/rows", "memcpy", 0.35, 0.25},
        {"Erase in memory, memcpy", "Erase/.*/4096", "memcpy", 0.95},
        {"Alpha Mask array in memory, memcpy", "Alpha Mask/array/.*/4096", "memcpy", 0.95},
        {"Normal run on opaque, Erase and Alpha Mask array in memory, the limit",
         "(Normal/run/opaque|Erase/.*|Alpha Mask/array/.*)/4096", "read change write", 0.95},
        {"Normal array, spans over opaque in memory, the limit", "Normal/array/spans over opaque/4096",
         "read change write", 0.95},
        {"Normal array, spans over spans in memory, the limit", "Normal/array/spans over spans/4096",
         "read change write", 0.65},
        {"Normal array, translucent over translucent in memory, the limit", "Normal/array/translucent/4096",
         "read change write", 0.65},
        {"Normal array, translucent over opaque in memory, the limit", "Normal/array/opaque/4096",
         "read change write", 0.93},
        {"Normal run on spans and translucent in memory, the limit", "Normal/run/(spans|translucent)/4096",
         "read change write", 0.55},
        {"Multiply and Add array on translucent in memory, the limit",
         "(Multiply|Add)/array/translucent/4096", "read change write", 0.43},
        {"Copy in memory, fastest peer", "Copy/.*/4096", "peer", 0.95},
        {"Over array of opaque sources in memory, memcpy", "Over/array/opaque over .*/4096", "memcpy", 0.95},
        {"Everything, libraries that keep straight alpha", ".*", "(Qt|AGG native) straight", 1},
        {"ScalePlain, pixman", "ScalePlain/.*", "pixman", 1.5},
        {"ScaleBiLin, Qt on straight images", "ScaleBiLin/.*", "Qt straight", 2},
        {"ScaleBiLin, pixman", "ScaleBiLin/.*", "pixman", 0.65},
        {"RotatePlain 512, fastest peer", "RotatePlain/.*/512", "peer", 1},
        {"RotatePlain 4096, fastest peer", "RotatePlain/.*/4096", "peer", 1},
        {"RotateBiLin 512, fastest peer", "RotateBiLin/.*/512", "peer", 1},
        {"RotateBiLin 4096, fastest peer", "RotateBiLin/.*/4096", "peer", 1},
        {"TransformPlain 512, fastest peer", "TransformPlain/.*/512", "peer", 1},
        {"TransformPlain 4096, fastest peer", "TransformPlain/.*/4096", "peer", 1},
        {"TransformBiLin 512, fastest peer", "TransformBiLin/.*/512", "peer", 1},
        {"TransformBiLin 4096, fastest peer", "TransformBiLin/.*/4096", "peer", 1},
        {"NoiseRemover radius 64, radius 8", "NoiseRemover/noise/radius 64", "radius 8", 1 / 1.3},
        {"NoiseRemover radius 255, radius 8", "NoiseRemover/noise/radius 255", "radius 8", 1 / 4.0},
        {"NoiseRemover radius 64, without vectors", "NoiseRemover/noise/radius 64", "plain", 500},
        {"Rectangles of 4 to 16 pixels, fastest peer", "Rectangles of 4 .*", "peer", 1},
        {"Rectangles of 16 to 128 pixels, fastest peer", "Rectangles of 16 .*", "peer", 1},
        {"Lines, fastest peer", "Lines/.*", "peer", 1},
        {"Filled ellipses, fastest peer", "Filled ellipses/.*", "peer", 1},
        {"Outlined ellipses, fastest peer", "Outlined ellipses/.*", "peer", 1},
        {"Patterned rectangles, fastest peer", "Patterned .*", "peer", 1},
        {"Polygons, fastest peer", "Polygons/.*", "peer", 1},
        {"CreateScaled, its tool into a new raster", "CreateScaled/.*", "the tool into a new raster", 0.98},
        {"NoiseRemover on a quiet image, memcpy", "NoiseRemover/quiet/.*", "memcpy", 0.35},
    };
    result.insert(result.end(), rest.begin(), rest.end());
    return result;
}

// The contest in which the contender does worst against its fastest rival.
struct Worst {
    double ratio;
    std::string contest;
    std::string rival;
};

std::optional<Worst> worst_of(const Goal& goal, const std::string& contender,
                              const std::vector<Result>& results) {
    const std::regex named(goal.contests);
    std::optional<Worst> worst;
    for (const Result& result : results) {
        if (!std::regex_match(result.contest, named))
            continue;
        const Figure* own = result.Fastest(contender);
        const Figure* rival = result.Fastest(goal.rivals);
        if (own && rival && (!worst || own->rate / rival->rate < worst->ratio))
            worst = {own->rate / rival->rate, result.contest, rival->name};
    }
    return worst;
}

void write_goal(std::ostream& out, const std::string& text, double target,
                const std::optional<Worst>& worst) {
    if (!worst)
        return;
    out << "| " << text << " | " << target << " | " << worst->ratio << " | "
        << (worst->ratio >= target ? "yes" : "**no**") << " | " << worst->contest << " | " << worst->rival
        << " |\n";
}

}  // namespace

void write_goals(std::ostream& out, const std::vector<Result>& results) {
    out << std::fixed << std::setprecision(2)
        << "| Goal: times the speed of | wanted | measured | reached | worst in | against |\n"
           "|---|---:|---:|---|---|---|\n";
    for (const Goal& goal : goals()) {
        write_goal(out, goal.text, goal.target, worst_of(goal, "ksimaging", results));
        if (goal.avx2_target > 0)
            write_goal(out, goal.text + " (AVX2)", goal.avx2_target,
                       worst_of(goal, "ksimaging avx2", results));
    }
}
