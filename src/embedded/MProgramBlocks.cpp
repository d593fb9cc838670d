#include "embedded/MProgramBlocks.h"

namespace {

#include "embedded/Resources.inc"

}  // namespace

MEmbeddedBlocks MGetProgramBlocks() {
    return {.resources = std::as_bytes(std::span(resources)), .globalData = {}};
}
