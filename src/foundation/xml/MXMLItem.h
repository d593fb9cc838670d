#pragma once

#include "foundation/base/MList.h"
#include "foundation/base/MObject.h"
#include "foundation/text/MNumberText.h"
#include "foundation/text/MString.h"
#include "foundation/xml/MAttribute.h"

#include <concepts>
#include <cstdint>

class MStream;
class MXMLLoadObserver;

/// A node of an XML tree: name, value (the text between its tags), attributes sorted by name, and
/// sub-items in document order, which it owns. All names and compared values are matched by the equality
/// of `MString`.
///
/// `HasAttribute` and `HasSubItem` leave what they found in a cache for the accessor that follows, so a
/// tree belongs to one thread even for reading. Unless another code is told, failures raise
/// `MExceptionGeneral` (0).
class MXMLItem : public MObject {
public:
    using SubItemList = MList<MXMLItem, MListOwning>;

    MXMLItem() = default;
    explicit MXMLItem(const MString& name) : name(name) {}
    MXMLItem(const MXMLItem&) = delete;
    MXMLItem& operator=(const MXMLItem&) = delete;

    [[nodiscard]] const MString& GetName() const { return name; }
    void SetName(const MString& newName) { name = newName; }
    [[nodiscard]] const MString& GetValue() const { return value; }
    void SetValue(const MString& newValue) { value = newValue; }
    void AppendToValue(const MString& text) { value.Append(text); }

    /// Null for a root, and for the last or first sub-item.
    [[nodiscard]] MXMLItem* GetParent() const { return parent; }
    [[nodiscard]] MXMLItem* GetNext() const { return next; }
    [[nodiscard]] MXMLItem* GetPrevious() const { return previous; }
    /// 0 for a root.
    [[nodiscard]] int32_t GetDepth() const { return depth; }

    // Attributes.
    [[nodiscard]] bool HasAttribute(const MString& attribute);
    /// The value that the last `HasAttribute` found. Raises "There is no attribute in the cache. Previous
    /// call to HasAttribute probably did not succeed.".
    [[nodiscard]] const MString& GetCachedAttribute() const;
    /// Raises "Could not find required attribute ({0}).".
    [[nodiscard]] const MString& GetAttribute(const MString& attribute) const;
    [[nodiscard]] MString GetAttribute(const MString& attribute, const MString& defaultValue) const;
    /// The low bits of the number that the attribute begins with, 0 if it begins with none (see
    /// `MParseInt64`). The forms without default raise as `GetAttribute` does.
    [[nodiscard]] int32_t GetInt32Attribute(const MString& attribute) const;
    [[nodiscard]] int32_t GetInt32Attribute(const MString& attribute, int32_t defaultValue) const;
    [[nodiscard]] int64_t GetInt64Attribute(const MString& attribute) const;
    [[nodiscard]] int64_t GetInt64Attribute(const MString& attribute, int64_t defaultValue) const;
    /// Replaces the value, or adds the attribute.
    void SetAttribute(const MString& attribute, const MString& newValue);
    void SetAttribute(const MString& attribute, const char* newValue) {
        SetAttribute(attribute, MString(newValue));
    }
    template <std::integral Integer>
    void SetAttribute(const MString& attribute, Integer newValue) {
        SetAttribute(attribute, MNumberToText(newValue));
    }
    /// Nothing happens if it is not there.
    void RemoveAttribute(const MString& attribute);
    [[nodiscard]] const MAttributeList& GetAttributes() const { return attributes; }
    /// Replaces all attributes by those of a list in any order, which is left empty. Of equal names the
    /// last one counts.
    void TakeAttributes(MAttributeList& taken);

    // Sub-items. A pointer stays valid until the item is removed or its tree goes.
    [[nodiscard]] int32_t GetSubItemCount() const { return subItems.GetCount(); }
    [[nodiscard]] MXMLItem* GetSubItem(int32_t index) const { return subItems[index]; }
    [[nodiscard]] const SubItemList& GetSubItems() const { return subItems; }
    /// The recursive form searches depth first, each sub-item before its own sub-items.
    [[nodiscard]] bool HasSubItem(const MString& itemName, bool isRecursive = false);
    /// What the last `HasSubItem` found. Raises "There is no subitem in the cache. Previous call to
    /// HasSubItem probably did not succeed.".
    [[nodiscard]] MXMLItem* GetCachedSubItem() const;
    /// The first direct sub-item of a name. Raises "Could not find required subitem ({0}).".
    [[nodiscard]] MXMLItem* GetSubItem(const MString& itemName) const;
    [[nodiscard]] MXMLItem* GetSubItem(const char* itemName) const { return GetSubItem(MString(itemName)); }
    /// As above; null if there is none.
    [[nodiscard]] MXMLItem* FindSubItem(const MString& itemName) const;
    /// The first one on any level, depth first.
    [[nodiscard]] MXMLItem* FindSubItemBelow(const MString& itemName) const;
    [[nodiscard]] MXMLItem* FindSubItem(const MString& itemName, const MString& attribute,
                                        const MString& attributeValue) const;
    MXMLItem* GetOrAddSubItem(const MString& itemName);
    /// Adds an item with the attribute set if none has that name, attribute and value.
    MXMLItem* GetOrAddSubItem(const MString& itemName, const MString& attribute,
                              const MString& attributeValue);
    /// Adds an empty item at the end.
    MXMLItem* AddSubItem(const MString& itemName);
    /// Adds a parentless item, and takes it over.
    MXMLItem* AddSubItem(MXMLItem* item);
    /// Deletes. Raises "Index out of range.".
    void RemoveSubItem(int32_t index);
    /// Deletes all direct sub-items of a name.
    void RemoveSubItems(const MString& itemName);
    void RemoveAllSubItems();
    /// All levels below this item, in document order.
    [[nodiscard]] int32_t CountSubItems(const MString& itemName) const;
    void CollectSubItems(const MString& itemName, MList<MXMLItem, MListPointers>& list) const;
    /// By the value of one attribute, ignoring case; an item without it sorts as empty. Not stable.
    void SortSubItems(const MString& attribute);

    /// Drops attributes, value and sub-items, and keeps the name.
    void Clear();
    /// Clears this item, then takes the other's attributes, value, name and a copy of its sub-items.
    /// The other one may be an item below this one.
    void CopyFrom(const MXMLItem& other);
    /// The same without a copy: the other one, which must not be below this one, has nothing left afterwards.
    void MoveFrom(MXMLItem& other);
    /// Moves the other's sub-items to the end of this one's.
    void TakeSubItems(MXMLItem& other);

    /// Makes this item the document element of what the stream holds (dialect: MMarkupReader.h). The
    /// observer, if given, hears of every item. Raises what `MLibraryInternals::MXMLParser` raises, and
    /// then this item holds what was read so far.
    void Load(MStream& stream, MXMLLoadObserver* observer = nullptr);
    /// Also raises what opening a file raises.
    void LoadFile(const MString& path);
    /// From a zlib stream (RFC 1950).
    void LoadCompressed(MStream& stream);
    /// Writes the document with this item as its element. The compact form has no line ends after the
    /// header; the other one is indented by tabs and has each word of a value on a line of its own.
    /// Raises "XML entity cannot have empty name." and what finding the encoding raises.
    void Save(MStream& stream, bool isCompact, const MString& encoding) const;
    /// A file that is there stays until the new one is complete, unless it is a link, or its folder lets nothing be
    /// added: then it is written in its place. Raises what opening, writing and `MReplaceFile` raise, too.
    void SaveFile(const MString& path, bool isCompact, const MString& encoding) const;
    /// The compact form, as a zlib stream.
    void SaveCompressed(MStream& stream, const MString& encoding) const;

    /// Makes the value hexadecimal text of the block compressed by zlib.
    void StoreBinary(const void* block, int32_t size);
    /// Reverses `StoreBinary`. Raises "Value doesn't have correct format." if the value does not hold
    /// exactly `size` bytes, and what reading hexadecimal text and zlib data raises.
    void LoadBinary(void* block, int32_t size) const;

private:
    [[nodiscard]] MAttribute* FindAttribute(const MString& attribute) const;
    void SetDepth(int32_t newDepth);
    /// Repairs the sibling pointers on both sides of the gap before `index`.
    void LinkAcross(int32_t index);
    void LinkAll();
    /// Copies the sub-items of another item to the end of this one's.
    void AddCopies(const MXMLItem& other);

    MXMLItem* parent = nullptr;
    MXMLItem* next = nullptr;
    MXMLItem* previous = nullptr;
    SubItemList subItems;
    MString name;
    MString value;
    MAttributeList attributes;
    const MAttribute* cachedAttribute = nullptr;
    MXMLItem* cachedSubItem = nullptr;
    int32_t depth = 0;
};
