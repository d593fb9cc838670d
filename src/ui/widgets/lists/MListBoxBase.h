#pragma once

#include "ui/control/windows/MTimer.h"
#include "ui/widgets/lists/MRowView.h"

#include <cstdint>
#include <vector>

/// Rows of which some are selected and some may be checked, and which the user may put in another order. Selected
/// rows are changed by the keyboard and the mouse as `WriteHelpInfo` tells.
class MListBoxBase : public MRowView, private MTimer {
public:
    explicit MListBoxBase(MControl* parent = nullptr, const MString& name = MString());

    /// Without it, as in the beginning, one row at most is selected.
    void SetMultiSelect(bool isMulti);
    /// Whether all rows have a check box, those too that come later.
    void SetCheckBoxes(bool hasThem);
    [[nodiscard]] bool HasCheckBoxes() const { return hasCheckBoxes; }
    /// Whether the user may change the order.
    virtual void SetReorderable(bool isReorderable) { canReorder = isReorderable; }

    // Nobody is told of what these do.
    [[nodiscard]] MList<int32_t> GetSelectedRows();
    /// The first one, or -1.
    [[nodiscard]] int32_t GetSelectedRow();
    /// Selects a row alone, none for -1 and where there is no such row, and scrolls it into view.
    void SelectRow(int32_t row);
    /// Of a row that can be selected.
    void SetRowSelected(int32_t row, bool isSelected);
    void SelectAll();

    /// "columns", "rows", "row{0}", "columns{0}", "checkboxes", "background", "multiselect", "reorder".
    void LoadFromXml(MXMLItem& item) override;
    void PaintContent(MDrawer& drawer) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    void OnCaptureLost() override;
    void OnTimer() override;
    void WriteHelpInfo(MXMLItem& item) override;

protected:
    // What the user has done. Any of these may end the control.
    /// Other rows are selected.
    virtual void OnSelected() = 0;
    /// A row was checked or unchecked.
    virtual void OnChecked(int32_t row) = 0;
    /// A row was double clicked, or Enter was pressed on it. Returns whether anybody heard of it.
    virtual bool OnActivated(int32_t row) = 0;
    /// By their plain texts without regard to case; rows of the same text stay as they stood.
    void SortRows();
    /// Puts rows in another order: `order` tells for each place the row that comes there.
    virtual void Reorder(const std::vector<int32_t>& order) = 0;

    /// The keyboard begins at what a document has selected, and the view shows it.
    void StartAtSelected();
    /// How rows are selected by the mouse, for the help.
    [[nodiscard]] std::vector<const char*> GetSelectionUsage() const;

    /// An item has come, or is about to go.
    void OnItemAdded(MListBoxItemBaseWithFeatures& item);
    void OnItemRemoved(MListBoxItemBaseWithFeatures& item);

    void GoTo(int32_t row, MKeyModifiers modifiers) override;
    [[nodiscard]] uint8_t GetRowState(int32_t row) override;
    bool ProcessWheel(int32_t steps) override;
    virtual bool ProcessRowKey(int32_t key, MKeyModifiers modifiers);

private:
    /// Deselects all without a word.
    void ClearSelection();
    /// Selects what lies between the anchor and a row, and nothing else.
    void SelectRange(int32_t row);
    void SelectAlone(int32_t row);
    bool ProcessPress(const MSystemEvent& event);
    void ProcessMouseMove(MPoint point);
    void ProcessRelease();
    void ToggleCheck(int32_t row);
    /// Of all selected rows, to what the row is not.
    void ToggleSelectedChecks(int32_t row);
    /// Has rows in another order, with the keyboard on the same one.
    void ApplyOrder(const std::vector<int32_t>& order);
    /// Moves the selected rows to the gap before a row.
    void MoveSelected(int32_t gap);
    /// Marks the gap that the mouse is at; none at the end of a drag.
    void SetGap(int32_t gap);
    [[nodiscard]] int32_t FindGap(MPoint point);
    [[nodiscard]] MRect GetGapRect();
    void EndDrag();

    /// A press that may become the move of rows to another place.
    struct Drag {
        MPoint start;
        MPoint mouse;
        bool isActive = false;
        int32_t gap = -1;  ///< before which row they go
    };

    std::vector<MListBoxItemBaseWithFeatures*> selectedItems;
    Drag drag;
    int32_t anchorRow = -1;   ///< where a selection of several rows begins
    int32_t pressedRow = -1;  ///< a selected one, which is selected alone unless it is dragged
    bool isMultiSelect = false;
    bool canReorder = false;
    bool hasCheckBoxes = false;
};
