#include "ui/stml/MSTMLReader.h"

#include "streams/basic/MMemoryStream.h"
#include "ui/stml/MSTMLAttributes.h"

void MSTMLReader::ParseText(const MString& text) {
    // The encoding in which nothing of a text is lost, behind its signature.
    MString stored = MString::Copy(u"\xFEFF", 1);
    stored.Append(text);
    MMemoryStream stream(MEncoding::FindCodec("utf-16").Encode(stored, false));
    Parse(stream, "utf-16");
}

bool MSTMLReader::OnElement(const MString& name, MAttributeList& attributes, bool isClosing) {
    tagSets.CountTag();
    if (name.IsExactly("tagset")) {
        if (isClosing)
            tagSets.EndRecording();
        else
            tagSets.BeginRecording(MSTMLAttributes(attributes).GetText("name"));
    } else if (tagSets.IsRecording()) {
        tagSets.Record(name, attributes, isClosing);
    } else {
        OnTag(name, MSTMLAttributes(attributes), isClosing);
    }
    return false;
}

void MSTMLReader::ReplayTagSet(const MString& name, const MSTMLAttributes& attributes, bool isClosing) {
    tagSets.Replay(name, isClosing, [&](const MSTMLTagSet::Tag& recorded, bool isRecordedClosing) {
        OnTag(recorded.name, attributes.With(recorded.attributes), isRecordedClosing);
    });
}
