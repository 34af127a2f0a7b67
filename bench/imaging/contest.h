// SPDX-License-Identifier: MIT
// Contests: contenders that do the same work, timed in turn so that a noisy machine is fair to all of them.
#pragma once

#include "bench/imaging/image.h"
#include "bench/imaging/result.h"

#include <functional>
#include <string>
#include <vector>

// What a contender leaves in the destination.
enum class Picture {
    kSame,           // bit for bit what the first contender leaves
    kStraight,       // its own idea of the same picture
    kPremultiplied,  // the same in premultiplied colour
    kUnrelated,      // other work, there for its speed
};

// What a contest compares.
class Contest {
public:
    using Step = std::function<void()>;

    // `units` is how many pixels one pass works on. `destination` is where every contender leaves its
    // picture, or null where there is nothing to look at; it outlives the contest.
    Contest(std::string name, double units, Image* destination);

    // Adds a contender. `pass` does the work once and is timed; `restore` is called before each pass,
    // untimed.
    void Add(Kind kind, std::string name, Picture picture, Step pass, Step restore = {});

    // Adds the library, held to each instruction set that this processor has, from the newest down:
    // `ksimaging` is the one that it chooses itself. `reveal` brings what a pass drew elsewhere into the
    // destination.
    void AddOwn(Picture picture, const Step& pass, const Step& restore = {}, const Step& reveal = {});

    // Runs every contender once and compares the pictures, then `rounds` rounds in which each has its turn of
    // about `milliseconds`, at least one pass. Throws std::runtime_error where a contender drew nothing,
    // or not the same where it must.
    Result Run(int rounds, double milliseconds);

private:
    struct Contender {
        Figure figure;
        Picture picture;
        Step pass, restore, reveal;
    };

    static double BestPass(const Contender& contender, double milliseconds);
    void ComparePictures();

    std::string _name;
    double _units;
    Image* _destination;
    std::vector<Contender> _contenders;
};
