#pragma once

#include "builder/compression/MPieceCodec.h"
#include "builder/definition/MBuilderOptions.h"

/// The way to compress that a command line asks for.
[[nodiscard]] std::unique_ptr<MPieceCodec> MMakePieceCodec(const MBuilderOptions& options);
