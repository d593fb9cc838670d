#pragma once

#include "foundation/xml/MAttribute.h"
#include "foundation/xml/MMLParser.h"
#include "ui/stml/MSTMLTagSet.h"

class MSTMLAttributes;

/// Goes through mark-up and hands on its tags, those that tag sets stand for in the place of the set's.
class MSTMLReader : public MMLParser<MAttribute, MAttributeList> {
public:
    /// Raises what `Parse` raises; what was read before has been handed on.
    void ParseText(const MString& text);

protected:
    bool OnElement(const MString& name, MAttributeList& attributes, bool isClosing) final;
    virtual void OnTag(const MString& name, const MSTMLAttributes& attributes, bool isClosing) = 0;
    /// Hands on what a tag stands for; nothing if it is no set's.
    void ReplayTagSet(const MString& name, const MSTMLAttributes& attributes, bool isClosing);

private:
    MSTMLTagSets tagSets;
};
