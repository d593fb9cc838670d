#pragma once

#include "builder/definition/MBuilderOptions.h"
#include "builder/output/MBuilderOutput.h"

#include <optional>

/// Reads the tool's command line, without the program's own name.
class MBuilderCommandLine {
public:
    /// The options, or nothing if the line is wrong or only asks for help, which then has been given.
    [[nodiscard]] static std::optional<MBuilderOptions> Parse(const MList<MString>& arguments,
                                                              MBuilderOutput& output, int32_t& exitCode);
};
