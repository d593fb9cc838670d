#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// Patterns of file names, separated by ";": "*" stands for any characters, "?" for one. The case of letters does not
/// count. "*.*" and nothing at all fit every name.
class MNamePatterns final {
public:
    explicit MNamePatterns(const MString& text);

    [[nodiscard]] bool Match(const MString& name) const;

private:
    MList<MString> patterns;
};
