#pragma once

#include "foundation/xml/MAttribute.h"
#include "foundation/xml/MMLParser.h"

class MXMLItem;
class MXMLLoadObserver;

namespace MLibraryInternals {

/// Builds a tree of items from a document. What follows the end of the document element is not read.
class MXMLParser final : public MMLParser<MAttribute, MAttributeList> {
public:
    /// Levels of elements that a document may have.
    static constexpr int32_t MaximumDepth = 1000;

    /// Root and observer, which may be null, outlive the parser. The root takes the document element.
    explicit MXMLParser(MXMLItem& root, MXMLLoadObserver* observer = nullptr)
        : root(root), observer(observer) {}

    /// Clears the root, then parses. After an exception the root holds what was read so far, and
    /// `GetLine` tells where it happened.
    /// Raises what `Parse` raises; "Invalid file contents. " (0x100) with "Invalid closing element name."
    /// "No ending delimiter found." or "Elements are nested too deeply."; "Text outside of any element."
    /// and "The XML does not contain any elements." (0).
    void ParseDocument(MStream& stream);

protected:
    bool OnElement(const MString& name, MAttributeList& attributes, bool isClosing) override;
    bool OnText(const MString& text) override;

private:
    bool CloseElement(const MString& name);
    void OpenElement(const MString& name, MAttributeList& attributes);

    MXMLItem& root;
    MXMLLoadObserver* observer;
    MXMLItem* current = nullptr;
    int32_t depth = 0;
    bool isRootFound = false;
};

}  // namespace MLibraryInternals
