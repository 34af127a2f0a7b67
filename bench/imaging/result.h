// SPDX-License-Identifier: MIT
// What came out of contests, and the CSV file that keeps it.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

// What a contender is to the library.
enum class Kind {
    kOurs,    // the library itself
    kLevel,   // the library held to a lower instruction set
    kPlain,   // the same work without vectors
    kMemory,  // what reading and writing the memory takes
    kPeer,    // another library that does the same work
    kOther,   // other work, or an easier form of it: counts only where a goal names it
};

// What was measured of one contender.
struct Figure {
    std::string name;
    Kind kind;
    double rate = 0;                   // units per microsecond: median over the rounds of the best passes
    double spread = 0;                 // half the distance of the rounds' quartiles, as a share of `rate`
    std::optional<double> difference;  // mean distance of premultiplied channels from the first contender's
};

struct Result {
    std::string contest;
    std::vector<Figure> figures;  // the first one is the one that the ratios refer to

    // Returns the fastest of those whose name or kind matches this expression as a whole, or null.
    const Figure* Fastest(const std::string& name_or_kind) const;

    // Returns how many times the speed of `figure` the first contender has.
    double RatioTo(const Figure& figure) const { return figures.front().rate / figure.rate; }

    // Writes the figures as a table to standard output.
    void Print() const;
};

struct Record {
    std::string conditions;  // one line: when and where it was measured
    std::vector<Result> results;
};

// Writes the conditions as a comment and then a line a contender.
void write_csv(std::ostream& out, const Record& record);

// Reads what write_csv wrote. Throws std::runtime_error with the line's number where a line is something
// else.
Record read_csv(std::istream& in);
