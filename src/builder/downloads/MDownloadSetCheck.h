#pragma once

#include "builder/definition/MBuilderOptions.h"
#include "builder/downloads/MDownloadSetSources.h"

/// Tests what a maker asks for before anything is written. Each fault becomes a problem that says what is
/// wrong, where and what to do.
class MDownloadSetCheck {
public:
    /// What the set may have at most, so that a 32-bit program can hold the index in memory.
    static constexpr int64_t MaximumPartCount = 100'000;

    /// The options and the problems outlive the check.
    MDownloadSetCheck(const MBuilderOptions& options, MList<MString>& problems)
        : options(options), problems(problems) {}

    /// Tests ID, mirrors, output and the number of parts. Raises what listing directories raises.
    void Run(const MDownloadSetSources& sources);

private:
    void CheckID();
    void CheckMirror(const MString& mirror);
    void CheckOutput();
    void CheckPartCount(const MDownloadSetSources& sources);
    template <class... Values>
    void AddProblem(const char* text, const Values&... values);

    const MBuilderOptions& options;
    MList<MString>& problems;
};
