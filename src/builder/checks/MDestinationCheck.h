#pragma once

#include "builder/checks/MPlatforms.h"
#include "builder/definition/MDefinition.h"
#include "install/definition/MItemNames.h"

#include <string>
#include <unordered_map>
#include <vector>

/// Looks for two files, or a file and a directory, that would land in one place, in the eyes of a file system
/// that ignores case, for those that would take the place of the installer's own, and for paths that are too
/// long for many programs of Windows.
///
/// A `files` element and each `copy` in it is one pass over the files. Destinations are compared as texts,
/// with their macros unexpanded. Two passes never meet if they are for different platforms, or if both name
/// `configurations` and share none; every other two can be ticked together. Two passes that bring the same
/// file of the maker's disk to one place do no harm.
class MDestinationCheck {
public:
    /// The definition and the problems outlive the check.
    MDestinationCheck(const MDefinition& definition, MProblemList& problems)
        : definition(definition), problems(problems) {}

    void Run();

private:
    struct Pass {
        const MXMLItem* element;
        const MXMLItem* files;
        MList<MString> configurations;
        bool isFlat;
        MPlatforms platforms;
        MItemExtensions extensions;
    };
    struct Place {
        const Pass* pass;
        const MXMLItem* item;
        MString source;
        bool isDirectory;
    };

    void AddPass(const MXMLItem& element, const MXMLItem& files);
    void WalkPass(const Pass& pass);
    /// Gives the longest target of a file.
    MString WalkItems(const Pass& pass, const MXMLItem& parent, const MString& target, const MString& source,
                      bool isFlat);
    /// About the length that a destination has on Windows, in characters.
    [[nodiscard]] int32_t EstimateLength(const MString& destination) const;
    void AddPlace(const MString& target, const Place& place);
    [[nodiscard]] bool IsInMainDirectory(const MString& target, const Place& place,
                                         bool (MPlatforms::*isOn)() const) const;
    [[nodiscard]] int32_t GetLine(const Place& place) const;
    void Compare(const MString& target, const Place& first, const Place& second);
    [[nodiscard]] static bool CanMeet(const Pass& first, const Pass& second);

    const MDefinition& definition;
    MProblemList& problems;
    std::vector<Pass> passes;
    std::unordered_map<std::string, std::vector<Place>> places;
};
