#pragma once

#include "ui/style/images/StateImage.h"

#include <array>
#include <cstdint>
#include <optional>

/// The states that a part of a control has pictures for.
enum class MImageState : uint8_t {
    Normal,
    Focused,
    Highlighted,
    FocusedHighlighted,
    Clicked,
    ClickedHighlighted,
    Disabled,
    Count
};

inline constexpr const char* MImageStateNames[] = {"normal",  "focused",   "hl",      "focusedhl",
                                                   "clicked", "clickedhl", "disabled"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MImageState> = MImageStateNames;

/// How one class of controls, or a part of one, looks in each state, and how much room its frame takes.
/// Lengths are those of 100 percent.
class ControlStyle {
public:
    /// Adds what an element describes. `like` names a class of `root` whose "image" comes first, or in the
    /// element of a state another state of this one. Raises what `StateImage::Load` raises.
    void Load(MXMLItem& item, MXMLItem& root);

    /// Whether there is a picture for any state.
    [[nodiscard]] bool IsEmpty() const;
    /// The state of a picture for one of `MDrawState`.
    [[nodiscard]] static MImageState ComputeDrawState(uint8_t drawState);
    /// Raises what is wrong with a colour of any state.
    void Check(const MStyleColors& colors) const;
    /// A state without a picture of its own shows that of the most similar state that has one, with that one's alpha
    /// unless it has an alpha of its own.
    void Paint(MDrawer& drawer, const MRect& rect, uint8_t drawState, const MImageContext& context);
    /// What `Paint` covers with opaque pixels; it may be less.
    [[nodiscard]] MRect GetOpaquePart(const MRect& rect, uint8_t drawState, const MImageContext& context);
    void Reset();

    /// What a frame takes on each side, without the room for the mark of the focus.
    MPoint border;
    MPoint contentOffset;
    MPoint defaultLayoutBorder;
    int32_t focusBorder = 0;  ///< the room for the mark of the focus, on each side
    bool isInverted = false;  ///< whether text on it is in the colours of what is selected
    bool isInvertedClicked = false;

    [[nodiscard]] MPoint GetSize() const;
    [[nodiscard]] MPoint GetMinimalSize() const;

private:
    static constexpr size_t StateCount = static_cast<size_t>(MImageState::Count);

    /// How a state is painted.
    struct Choice {
        size_t picture;
        uint8_t alpha;
        MImageContext context;
    };

    [[nodiscard]] size_t FindPicture(MImageState state) const;
    [[nodiscard]] Choice Choose(uint8_t drawState, const MImageContext& context) const;

    std::array<StateImage, StateCount> images;
    [[nodiscard]] uint8_t GetAlpha(size_t state) const { return alphas[state].value_or(255); }

    std::array<std::optional<uint8_t>, StateCount> alphas;  ///< those that the definition gives
    int32_t depth = 0;                                      ///< of records that this one is like
};
