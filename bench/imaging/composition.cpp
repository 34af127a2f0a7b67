// SPDX-License-Identifier: MIT
// The contests of composing: every mode over colour runs and arrays, in the cache and in memory.
#include "tests/reference/composition.h"
#include "bench/imaging/contests.h"
#include "bench/imaging/tasks.h"

#include <array>
#include <cstring>
#include <utility>

Scene::Scene(int width, int height, Alphas destination_alphas, Alphas source_alphas)
    : destination(width, height),
      straight_start(random_image(width, height, destination_alphas, 1)),
      premultiplied_start(premultiplied(straight_start)),
      straight_source(random_image(width, height, source_alphas, 2)),
      premultiplied_source(premultiplied(straight_source)) {}

std::function<void()> Scene::RestoreStraight() {
    return [this] { destination.CopyFrom(straight_start); };
}

std::function<void()> Scene::RestorePremultiplied() {
    return [this] { destination.CopyFrom(premultiplied_start); };
}

namespace {

// Calls `row` with each row of the destination and of the source.
template <class Row> auto each_row(Scene& scene, Row row) {
    return [&scene, row] {
        for (int y = 0; y < scene.destination.Height(); ++y)
            row(scene.destination.Row(y), scene.straight_source.Row(y), scene.destination.Width());
    };
}

std::function<void()> kernel_pass(const Composition& task) {
    if (task.family == Family::kRun)
        return each_row(*task.scene, [kernel = KSMerge::hash_color_func[task.mode]](
                                         std::uint32_t* destination, const std::uint32_t*, int count) {
            kernel(destination, kColour, 255, count);
        });
    return each_row(*task.scene, [kernel = KSMerge::hash_array_func[task.mode]](
                                     std::uint32_t* destination, const std::uint32_t* source, int count) {
        kernel(destination, source, 255, count);
    });
}

// Dissolve draws another picture each time.
Picture picture_of(ks_composition_mode mode) {
    return mode == kMergeDissolve ? Picture::kStraight : Picture::kSame;
}

void add_own(Contest& contest, const Composition& task) {
    contest.AddOwn(picture_of(task.mode), kernel_pass(task), task.scene->RestoreStraight());
}

// The pixel kernel of the table in a loop.
void add_pixel_kernel(Contest& contest, const Composition& task) {
    const bool run = task.family == Family::kRun;
    if (task.mode == kMergeErase || (task.mode == kMergeAlphaMask && !run))
        return;  // The pixel family has its own rule for these.
    contest.Add(Kind::kPlain, "pixel kernel", picture_of(task.mode),
                each_row(*task.scene,
                         [run, kernel = KSMerge::hash_pixel_func[task.mode]](
                             std::uint32_t* destination, const std::uint32_t* source, int count) {
                             for (int x = 0; x < count; ++x)
                                 destination[x] = kernel(destination[x], run ? kColour : source[x], 255);
                         }),
                task.scene->RestoreStraight());
}

// The mode as the tests define it, compiled for the one mode.
template <int mode>
void define_row(bool run, std::uint32_t* destination, const std::uint32_t* source, int count) {
    constexpr auto kMode = static_cast<ks_composition_mode>(mode);
    for (int x = 0; x < count; ++x)
        destination[x] = run ? reference::ComposeInRun(kMode, destination[x], kColour, 255)
                             : reference::ComposeInArray(kMode, destination[x], source[x], 255);
}

template <int... modes> constexpr auto definitions(std::integer_sequence<int, modes...>) {
    return std::array{define_row<modes>...};
}
constexpr auto kDefinitions = definitions(std::make_integer_sequence<int, kMergeCount>());

void add_definition(Contest& contest, const Composition& task) {
    contest.Add(Kind::kPlain, "definition", picture_of(task.mode),
                each_row(*task.scene, [run = task.family == Family::kRun,
                                       define = kDefinitions[static_cast<std::size_t>(task.mode)]](
                                          std::uint32_t* destination, const std::uint32_t* source,
                                          int count) { define(run, destination, source, count); }),
                task.scene->RestoreStraight());
}

void add_memory(Contest& contest, const Composition& task) {
    Scene& scene = *task.scene;
    const bool run = task.family == Family::kRun;
    const auto restore = scene.RestoreStraight();
    if (run)
        contest.Add(Kind::kMemory, "memset", Picture::kUnrelated,
                    each_row(scene,
                             [](std::uint32_t* destination, const std::uint32_t*, int count) {
                                 std::memset(destination, 0x5A, static_cast<std::size_t>(count) * 4);
                             }),
                    restore);
    contest.Add(Kind::kMemory, "memcpy", Picture::kUnrelated,
                each_row(scene,
                         [](std::uint32_t* destination, const std::uint32_t* source, int count) {
                             std::memcpy(destination, source, static_cast<std::size_t>(count) * 4);
                         }),
                restore);
    contest.Add(Kind::kMemory, "read change write", Picture::kUnrelated,
                each_row(scene, [change = run ? change_by_colour : change_by_row](
                                    std::uint32_t* destination, const std::uint32_t* source,
                                    int count) { change(destination, source, count); }),
                restore);
}

using AddPeer = void (*)(Contest&, const Composition&);
constexpr AddPeer kPeers[] = {add_pixman, add_qt, add_libyuv, add_sdl, add_agg};

// The images of composing contests: their alphas and their size.
struct Place {
    const char* name;
    int width, height;
    Alphas destination;
    Alphas source = Alphas::kTranslucent;

    bool InMemory() const { return height > 64; }
};

Place rows(Alphas destination, Alphas source = Alphas::kTranslucent) {
    return {"rows", 1024, 64, destination, source};
}

Place large(Alphas destination, Alphas source = Alphas::kTranslucent) {
    return {"4096", 4096, 4096, destination, source};
}

std::string contest_name(const Place& place, ks_composition_mode mode, Family family) {
    std::string name = KSMerge::composition_label[mode];
    name += family == Family::kRun ? "/run/" : "/array/";
    if (family == Family::kArray && place.source != Alphas::kTranslucent)
        name += std::string(name_of(place.source)) + " over ";
    return name + name_of(place.destination) + "/" + place.name;
}

void run_composition(Runner& runner, const Place& place, ks_composition_mode mode, Family family,
                     std::unique_ptr<Scene>& scene) {
    const std::string name = contest_name(place, mode, family);
    if (!runner.Wants(name))
        return;
    if (!scene)
        scene = std::make_unique<Scene>(place.width, place.height, place.destination, place.source);
    const Composition task{mode, family, place.destination, scene.get()};
    Contest contest(name, static_cast<double>(scene->destination.Count()), &scene->destination);
    add_own(contest, task);
    add_memory(contest, task);
    if (!place.InMemory()) {
        add_pixel_kernel(contest, task);
        add_definition(contest, task);
    }
    // A colour has no mask: that run composes like XOR Mask, which no peer has.
    if (mode != kMergeAlphaMask || family == Family::kArray)
        for (const AddPeer add : kPeers)
            add(contest, task);
    runner.Run(std::move(contest));
}

void run_modes(Runner& runner, const Place& place, const std::vector<ks_composition_mode>& modes,
               std::initializer_list<Family> families = {Family::kRun, Family::kArray}) {
    std::unique_ptr<Scene> scene;
    for (const ks_composition_mode mode : modes)
        for (const Family family : families)
            run_composition(runner, place, mode, family, scene);
}

}  // namespace

void run_composition_contests(Runner& runner) {
    std::vector<ks_composition_mode> all;
    for (std::int32_t mode = 0; mode < kMergeCount; ++mode)
        all.push_back(static_cast<ks_composition_mode>(mode));
    for (const Alphas alphas : {Alphas::kOpaque, Alphas::kTranslucent, Alphas::kMixed})
        run_modes(runner, rows(alphas), all);
    // The branches that the processor learns in so small a picture, it does not foresee in a large one.
    run_modes(runner, rows(Alphas::kSpans, Alphas::kSpans), {kMergeNormal}, {Family::kArray});
    run_modes(runner, large(Alphas::kOpaque),
              {kMergeNormal, kMergeMultiply, kMergeErase, kMergeAlphaMask, kMergeCopy});
    run_modes(runner, large(Alphas::kTranslucent),
              {kMergeNormal, kMergeMultiply, kMergeAdd, kMergeErase, kMergeAlphaMask});
    run_modes(runner, large(Alphas::kOpaque, Alphas::kOpaque), {kMergeOver}, {Family::kArray});
    run_modes(runner, large(Alphas::kOpaque, Alphas::kSpans), {kMergeNormal}, {Family::kArray});
    run_modes(runner, large(Alphas::kSpans, Alphas::kSpans), {kMergeNormal});
}
