#pragma once

#include "ui/widgets/lists/MListBoxBase.h"
#include "ui/widgets/trees/MTreeItemBase.h"

#include <cstdint>
#include <vector>

/// A tree of items, of which those are rows whose parents are all open. The root is a row of its own, or is left out
/// and counts as open.
class MTreeControlBase : public MListBoxBase {
public:
    explicit MTreeControlBase(MControl* parent = nullptr, const MString& name = MString());

    [[nodiscard]] virtual MTreeItemBase& GetRootBase() = 0;
    /// Whether the root is a row; it is in the beginning.
    void SetRootShown(bool isShown);

    /// The order is that of what the tree stands for; the user does not change it.
    void SetReorderable(bool) override {}
    /// Before it opens, whoever knows more items may add them (`OnOpening`).
    void SetItemOpen(MTreeItemBase& item, bool isOpen);
    /// The row of an item, -1 for one that is no row now. Takes time by the number of rows.
    [[nodiscard]] int32_t FindRow(const MTreeItemBase& item);
    /// Opens all above the item, selects it alone and scrolls to it; null for none. Nobody is told.
    void SelectTreeItem(MTreeItemBase* item);

    [[nodiscard]] int32_t GetRowCount() override;
    [[nodiscard]] MTreeItemBase& GetRow(int32_t row) override;
    void PaintItem(MDrawer& drawer, int32_t row, const MRect& rect, uint8_t drawState) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    /// "showroot", as well.
    void LoadFromXml(MXMLItem& item) override;
    void WriteHelpInfo(MXMLItem& item) override;

protected:
    /// An item is about to be opened by somebody, who may add items to it, or open it at once. May end the control,
    /// but not the item alone.
    virtual void OnOpening(MTreeItemBase& item) = 0;

    /// The parent, an item of this tree, owns the item. At the end for an index of -1.
    void InsertItem(MTreeItemBase& parent, MTreeItemBase* item, int32_t index);
    /// Deletes the item with all below it.
    void DeleteItem(MTreeItemBase& item);
    void DeleteItemsBelow(MTreeItemBase& item);

    [[nodiscard]] int32_t GetIndent(int32_t row) override;
    [[nodiscard]] int32_t GetLeastRowHeight() override;
    [[nodiscard]] int32_t GetCheckBoxSize() override;
    bool ProcessRowKey(int32_t key, MKeyModifiers modifiers) override;
    bool ProcessWheel(int32_t steps) override { return ScrollBySteps(steps); }
    void Reorder(const std::vector<int32_t>&) override {}

private:
    /// Makes the rows anew if items have come.
    void EnsureRows();
    void AppendRows(std::vector<MTreeItemBase*>& to, MTreeItemBase& item);
    /// The rows that an item has below it.
    [[nodiscard]] int32_t CountRowsBelow(int32_t row);
    void RemoveRows(int32_t row, int32_t count);
    /// What is below an item is about to go.
    void ForgetBelow(MTreeItemBase& item);
    [[nodiscard]] int32_t GetDepth(const MTreeItemBase& item) const;
    [[nodiscard]] MRect GetExpanderRect(int32_t row);
    [[nodiscard]] MPoint GetStep();
    void ToggleRow(int32_t row);
    void PaintLines(MDrawer& drawer, int32_t row, const MRect& rect);

    std::vector<MTreeItemBase*> rows;
    bool areRowsStale = true;
    bool isRootShown = true;
};
