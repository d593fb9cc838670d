#pragma once

#include "builder/checks/MPlatforms.h"
#include "foundation/xml/MXMLItem.h"
#include "install/definition/MItemNames.h"

#include <string>
#include <unordered_map>
#include <vector>

/// The places that a version of a product fills, in the eyes of a file system that ignores case. A `files`
/// element and each `copy` in it is one pass over the files; destinations are compared as texts.
class MUpdateTargets {
public:
    explicit MUpdateTargets(const MXMLItem& root);

    enum class Share { None, Some, All };

    /// In how many passes of a `files` element something of the version stands at a path, or below it. The path has
    /// "/" between its components.
    [[nodiscard]] Share GetFilled(const MXMLItem& files, const MString& path) const;

private:
    struct Pass {
        MString destination;
        bool isFlat;
        MItemExtensions extensions;
        MPlatforms platforms;

        /// Where the pass puts an item.
        [[nodiscard]] MString GetTarget(const MString& path) const;
    };

    [[nodiscard]] static std::vector<Pass> GetPasses(const MXMLItem& files);
    void AddItems(const MXMLItem& parent, const MString& path, const Pass& pass);

    std::unordered_map<std::string, std::vector<MPlatforms>> places;
};
