#pragma once

#include "builder/definition/MDefinition.h"

#include <string>

/// Looks for what an update manager does not take in the index that a server answers with: offers without a name
/// or a time, file names that lead elsewhere or stand there twice, and updates that are not in the order in which
/// they have to be installed.
class MUpdateIndexCheck {
public:
    /// The index was read as a definition. It and the problems outlive the check.
    MUpdateIndexCheck(const MDefinition& index, MProblemList& problems) : index(index), problems(problems) {}

    void Run();

    /// Whether a document is such an index, and no definition.
    [[nodiscard]] static bool IsIndex(const MXMLItem& root);

private:
    void CheckOffer(const MXMLItem& item);
    void CheckFileName(const MXMLItem& item);
    void CheckTime(const MXMLItem& item);

    const MDefinition& index;
    MProblemList& problems;
    /// The lines of the offers so far: by what a request names, and by time, those of packages apart.
    std::unordered_map<std::string, int32_t> names;
    std::unordered_map<std::string, int32_t> times[2];
    MString newest;  ///< the time of an update
};
