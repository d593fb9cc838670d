#pragma once

#include "install/engine/MInstallProcessor.h"

/// One `dir` or `file` element in the hands of the walk.
struct MInstallProcessor::Item {
    MXMLItem& element;
    MString name;
    MString path;
    MString op;
    bool rewritable;
    MProcessOptions& options;

    [[nodiscard]] bool IsRemoval() const { return options.uninstall || op == "delete"; }
};
