#pragma once

#include "builder/definition/MBuilderOptions.h"
#include "builder/output/MBuilderOutput.h"

/// Signs files by a private key: beside each comes its signature, of the same name with ".sig" at its end, as
/// "openssl dgst -sha256 -sign" writes it. Gives the exit code. Raises what reading and writing raise, and what
/// `MRSAKey` raises with the name of the key.
[[nodiscard]] int32_t MRunSignCommand(const MBuilderOptions& options, MBuilderOutput& output);
