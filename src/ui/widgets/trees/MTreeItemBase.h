#pragma once

#include "foundation/base/MList.h"
#include "ui/widgets/lists/MListBoxItemBaseWithFeatures.h"

#include <cstdint>

/// An item of a tree, which owns those below it. Changed by `MTreeControlBase` alone once it is in a tree.
class MTreeItemBase : public MListBoxItemBaseWithFeatures {
public:
    using MListBoxItemBaseWithFeatures::MListBoxItemBaseWithFeatures;

    /// As well "open".
    void LoadFromXml(MXMLItem& item) override;

    [[nodiscard]] MTreeItemBase* GetParentItem() const { return parent; }
    [[nodiscard]] int32_t GetChildCount() const { return children.GetCount(); }
    [[nodiscard]] MTreeItemBase& GetChildItem(int32_t at) const { return *children[at]; }
    /// Where it stands among those of its parent.
    [[nodiscard]] int32_t GetIndex() const { return index; }
    [[nodiscard]] bool IsOpen() const { return isOpen; }
    [[nodiscard]] bool IsLast() const { return !parent || index + 1 == parent->children.GetCount(); }
    /// Whether there is something to open.
    [[nodiscard]] bool CanOpen() const { return mayHaveChildren || !children.IsEmpty(); }
    /// Whether this is `other` or one of those above it.
    [[nodiscard]] bool Holds(const MTreeItemBase* other) const;

    /// Items may come below it when it is opened, as the folders in a folder.
    bool mayHaveChildren = false;

private:
    friend class MTreeControlBase;

    /// The parent owns it from then on.
    void InsertChild(int32_t at, MTreeItemBase* child);
    void RemoveChild(int32_t at);

    MTreeItemBase* parent = nullptr;
    MList<MTreeItemBase, MListOwning> children;
    int32_t index = 0;
    bool isOpen = false;
};
