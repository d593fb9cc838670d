#include "ui/stml/MSTMLTableRow.h"

#include "ui/stml/MSTMLAttributes.h"
#include "ui/text/MTextMeasure.h"

#include <algorithm>

MSTMLTableRow::MSTMLTableRow(const MSTMLAttributes& attributes)
    : rowHeight(attributes.GetLength("height")),
      frame{attributes.GetSpace("padding", 0), attributes.GetSpace("border", 0)},
      cellSpaces(attributes.GetSpace("cellspaces", 0)),
      borderAlpha(attributes.GetByte("borderalpha", 255)) {
    fill.Read(attributes);
}

MSTMLTableRow::MSTMLTableRow(const MSTMLTableRow& other)
    : MSTMLItem(other),
      fill(other.fill),
      rowHeight(other.rowHeight),
      frame(other.frame),
      cellSpaces(other.cellSpaces),
      borderAlpha(other.borderAlpha),
      columns(other.columns) {
    for (const auto& cell : other.cells) cells.push_back(std::unique_ptr<MSTMLTableCell>(cell->Clone()));
}

MSTMLTableCell& MSTMLTableRow::Add(std::unique_ptr<MSTMLTableCell> cell) {
    cells.push_back(std::move(cell));
    return *cells.back();
}

int32_t MSTMLTableRow::GetSpaces(MDrawer& drawer) const {
    const auto gaps = std::max<int64_t>(0, static_cast<int64_t>(cells.size()) - 1);
    return MAddPixels(gaps * drawer.ScaleX(cellSpaces), frame.GetWidth(drawer));
}

std::vector<int32_t> MSTMLTableRow::GetShares() const {
    std::vector<int32_t> shares;
    int64_t rest = 100;
    int32_t open = 0;
    for (const auto& cell : cells) {
        shares.push_back(cell->IsFixed() ? -1 : cell->GetShare());
        rest -= std::max(0, shares.back());
        if (shares.back() == 0) ++open;
    }
    rest = std::max<int64_t>(0, rest);
    for (int32_t& share : shares) {
        if (share != 0) continue;
        share = static_cast<int32_t>(rest / std::max(1, open--));
        rest -= share;
    }
    return shares;
}

void MSTMLTableRow::ComputeColumns(MSTMLContext& context, int32_t width) {
    const std::vector<int32_t> shares = GetShares();
    columns.assign(cells.size(), 0);
    int64_t room = int64_t{width} - GetSpaces(context.drawer);
    for (size_t i = 0; i < cells.size(); ++i) {
        if (shares[i] >= 0) continue;
        columns[i] = cells[i]->GetFixedWidth(context);
        room -= columns[i];
    }
    for (size_t i = 0; i < cells.size(); ++i) {
        if (shares[i] < 0) continue;
        const int64_t share = shares[i] * std::max<int64_t>(0, room) / 100;
        columns[i] = width < MSTMLUnlimited
                         ? MAddPixels(std::max<int64_t>(share, cells[i]->GetMinimalWidth(context)), 0)
                         : MSTMLUnlimited;
    }
}

/// The width for which every cell gets what `measure(cell, index)` says: `measure` of those that have a
/// share, the others what they have.
template <class Measure>
int32_t MSTMLTableRow::GetWidthFor(MSTMLContext& context, Measure measure) {
    const std::vector<int32_t> shares = GetShares();
    int64_t fixed = GetSpaces(context.drawer);
    int64_t sum = 0;
    int64_t largest = 0;
    for (size_t i = 0; i < cells.size(); ++i) {
        const int64_t needed = shares[i] < 0 ? cells[i]->GetFixedWidth(context) : measure(i);
        if (shares[i] < 0) {
            fixed += needed;
            continue;
        }
        sum += needed;
        if (shares[i] > 0) largest = std::max(largest, (needed * 100 + shares[i] - 1) / shares[i]);
    }
    return MAddPixels(fixed, std::max(sum, largest));
}

int32_t MSTMLTableRow::ComputeHeight(MSTMLContext& context, int32_t width, int32_t maxHeight) {
    ComputeColumns(context, width);
    const int32_t frameHeight = frame.GetHeight(context.drawer);
    const int32_t room = std::max(0, maxHeight - frameHeight);
    int32_t highest = 0;
    for (size_t i = 0; i < cells.size(); ++i)
        highest = std::max(highest, cells[i]->ComputeHeight(context, columns[i], room));
    return height = rowHeight.ResolveY(context.drawer, maxHeight, MAddPixels(highest, frameHeight));
}

int32_t MSTMLTableRow::ComputeSize(MSTMLContext& context, int32_t width, int32_t& outWidth) {
    ComputeColumns(context, width);
    int32_t highest = 0;
    std::vector<int32_t> needed(cells.size());
    for (size_t i = 0; i < cells.size(); ++i)
        highest = std::max(highest, cells[i]->ComputeSize(context, columns[i], needed[i]));
    outWidth = GetWidthFor(context, [&](size_t i) { return needed[i]; });
    return rowHeight.ResolveY(context.drawer, MSTMLUnlimited,
                              MAddPixels(highest, frame.GetHeight(context.drawer)));
}

int32_t MSTMLTableRow::GetMinimalWidth(MSTMLContext& context) {
    return GetWidthFor(context, [&](size_t i) { return cells[i]->GetMinimalWidth(context); });
}

int32_t MSTMLTableRow::GetMaximalWidth(MSTMLContext& context) {
    int32_t sum = GetSpaces(context.drawer);
    for (const auto& cell : cells)
        sum =
            MAddPixels(sum, cell->IsFixed() ? cell->GetFixedWidth(context) : cell->GetMaximalWidth(context));
    return sum;
}

void MSTMLTableRow::Paint(MSTMLContext& context, const MRect& rect, bool isInverted) {
    isInverted =
        fill.PaintFill(context.drawer, rect, isInverted, frame.GetBorder(context.drawer), borderAlpha);
    const MPoint side = frame.GetSize(context.drawer);
    const MRect inner = rect.Shrunk(side.x, side.y);
    int32_t left = inner.left;
    for (size_t i = 0; i < cells.size() && i < columns.size(); ++i) {
        const int32_t right = MAddPixels(left, columns[i]);
        cells[i]->Paint(context, {left, inner.top, right - 1, inner.bottom}, isInverted);
        left = MAddPixels(right, context.drawer.ScaleX(cellSpaces));
    }
}

bool MSTMLTableRow::HasContent() const {
    return std::ranges::any_of(cells, [](const auto& cell) { return cell->HasContent(); });
}
