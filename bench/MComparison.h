#pragma once

#include <functional>
#include <string>
#include <vector>

/// What a benchmark has found: a figure of ours beside that of a reference, and whether their ratio is good
/// enough.
struct MComparison {
    /// Whether the ratio is to be at least or at most the goal.
    enum class Goal { AtLeast, AtMost };

    double ours = 0;
    double reference = 0;
    std::string unit;
    /// How much better ours is where the goal is a lower bound, how much of the reference it takes where the
    /// goal is an upper one.
    double ratio = 0;
    Goal kind = Goal::AtLeast;
    double goal = 1;
    std::string note;

    [[nodiscard]] bool Holds() const { return kind == Goal::AtLeast ? ratio >= goal : ratio <= goal; }
};

/// One of two pieces of work that are compared. `prepare` is not timed and may be empty.
struct MWork {
    std::function<void()> prepare;
    std::function<void()> perform;
};

/// The clock that a comparison reads.
enum class MClock {
    Processor,  ///< time that the process has spent on processors; other programs hardly change it
    Wall,       ///< for work on several threads
};

/// Does both pieces of work in turns, `rounds` times each, beginning with one and the other alternately.
/// Gives the medians of the speeds, which are `amount` by seconds, and the median of the rounds' ratios: what
/// disturbs the machine for a while then disturbs both.
[[nodiscard]] MComparison MCompareSpeeds(int rounds, MClock clock, double amount, const MWork& ours,
                                         const MWork& reference);

/// Adds a benchmark that consists of one comparison. An `MException` that it raises is told as its failure.
/// Gives true, so that it can initialize a constant.
bool MRegisterComparison(const std::string& name, std::function<MComparison()> compare);
