#pragma once

#include "ui/stml/MSTMLReader.h"

/// The words of mark-up (MSTMLParser.h) for where there are only letters: paragraphs, rows and items become lines,
/// of which there is none without words, and objects are left out.
class MSTMLPlainText final : public MSTMLReader {
public:
    /// What a syntax error leaves unread is not there.
    [[nodiscard]] static MString Of(const MString& markup);

protected:
    bool OnText(const MString& words) override;
    void OnTag(const MString& name, const MSTMLAttributes& attributes, bool isClosing) override;

private:
    MString text;
    bool isLineDue = false;
};
