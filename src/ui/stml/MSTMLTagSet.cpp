#include "ui/stml/MSTMLTagSet.h"

void MSTMLTagSets::BeginRecording(const MString& name) {
    pendingTagSet = Find(name);
    if (pendingTagSet < 0) {
        if (tagSets.GetCount() == MaximumSets) tagSets.Remove(0);
        pendingTagSet = tagSets.GetCount();
        tagSets.Add({name, {}});
    }
    tagSets[pendingTagSet].tags.Clear();
}

void MSTMLTagSets::Record(const MString& name, MAttributeList& attributes, bool isClosing) {
    tagSets[pendingTagSet].tags.Add({name, std::move(attributes), isClosing});
}

bool MSTMLTagSets::Replay(const MString& name, bool isClosing, const TakeTag& take) {
    const int32_t found = Find(name);
    if (found < 0) return false;
    if (depth == MaximumDepth) return true;
    ++depth;
    const MList<MSTMLTagSet::Tag>& tags = tagSets[found].tags;
    for (int32_t i = 0; i < tags.GetCount() && replaysLeft > 0; ++i) {
        const MSTMLTagSet::Tag& tag = tags[isClosing ? tags.GetCount() - 1 - i : i];
        --replaysLeft;
        if (!isClosing)
            take(tag, tag.isClosing);
        else if (!tag.isClosing)
            take(tag, true);
    }
    --depth;
    return true;
}

int32_t MSTMLTagSets::Find(const MString& name) const {
    for (int32_t i = 0; i < tagSets.GetCount(); ++i)
        if (tagSets[i].name.IsExactly(name)) return i;
    return -1;
}
