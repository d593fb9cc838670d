#pragma once

#include "foundation/MList.h"
#include "foundation/MString.h"

#include <cstdint>

/// What the tool is to do.
enum class MBuilderCommand { Pack, Check, Inspect, Verify, Extract };

/// How a payload is delivered.
enum class MPayloadForm {
    Executable,  ///< behind a copy of the setup program
    Data,        ///< a file of its own, with the companion that holds its digest
};

enum class MCompression { Bzip2, ZLib, None };

/// A command line, taken apart.
struct MBuilderOptions {
    static constexpr int32_t MaximumThreads = 64;

    MBuilderCommand command = MBuilderCommand::Pack;
    MString input;   ///< the definition, or the file to look into
    MString output;  ///< a file for packing, a directory for extracting
    MString stub;    ///< the setup program; empty for the one beside the tool
    MPayloadForm form = MPayloadForm::Executable;
    MCompression compression = MCompression::Bzip2;
    int32_t level = 9;
    int32_t threads = 1;
    MList<MString> defines;  ///< each "NAME=TEXT"
    bool showsXML = false;
};
