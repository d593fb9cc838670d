#pragma once

#include "foundation/base/MList.h"
#include "foundation/xml/MAttribute.h"

#include <cstdint>
#include <functional>

/// A tag that stands for others: those between `<tagset name="x">` and `</tagset>`. `<x>` is as if they stood
/// in its place, with its attributes and, where it has not got them, with their own; `</x>` closes those that
/// the set opens, the last one first.
struct MSTMLTagSet {
    struct Tag {
        MString name;
        MAttributeList attributes;
        bool isClosing;
    };

    MString name;
    MList<Tag> tags;
};

/// The tag sets of a document. Sets may use each other and themselves, so what comes out of the tags of a
/// text is limited: tags beyond are ignored.
class MSTMLTagSets {
public:
    /// How deep sets may stand in each other.
    static constexpr int32_t MaximumDepth = 16;
    static constexpr int32_t MaximumSets = 1000;
    /// How many tags may come out of sets: so many at least, and so many more for each tag of the text.
    static constexpr int32_t FirstReplays = 4096;
    static constexpr int32_t ReplaysPerTag = 32;

    [[nodiscard]] bool IsRecording() const { return pendingTagSet >= 0; }
    /// A set of the same name is replaced; of more sets than `MaximumSets` the first one is forgotten.
    void BeginRecording(const MString& name);
    void EndRecording() { pendingTagSet = -1; }
    void Record(const MString& name, MAttributeList& attributes, bool isClosing);

    /// A tag of the text has been read.
    void CountTag() { replaysLeft += ReplaysPerTag; }
    /// Hands the tags that a tag stands for to `take`, which may replay others meanwhile. False if it is no
    /// set's.
    using TakeTag = std::function<void(const MSTMLTagSet::Tag& tag, bool isClosing)>;
    bool Replay(const MString& name, bool isClosing, const TakeTag& take);

private:
    [[nodiscard]] int32_t Find(const MString& name) const;

    MList<MSTMLTagSet> tagSets;
    int32_t pendingTagSet = -1;  ///< the set that is being recorded
    int32_t depth = 0;
    int64_t replaysLeft = FirstReplays;
};
