#pragma once

#include "builder/commands/MRawOptions.h"

#include <CLI/CLI.hpp>

// The options of the commands around updates, and those that they share with others.

/// How items are compressed, and by how many threads.
void MAddCompressionOptions(CLI::App& command, MRawOptions& raw);
/// An option that fills the `{{NAME}}` of a definition, and may be given several times.
void MAddDefines(CLI::App& command, const char* option, const char* description,
                 std::vector<std::string>& defines);

void MAddUpdateOptions(CLI::App& command, MRawOptions& raw);
void MAddPackageOptions(CLI::App& command, MRawOptions& raw);
void MAddUpdateServerOptions(CLI::App& command, MRawOptions& raw);
void MAddSignOptions(CLI::App& command, MRawOptions& raw);
