#pragma once

#include "foundation/text/MString.h"

/// The text as a terminal may have it, whoever has written it. What would command the terminal instead of
/// being shown becomes "\u001B": control characters but newline and tab, and those that turn the direction of
/// the text behind them. A byte that is no UTF-8 becomes "\xFF". Nothing else changes.
[[nodiscard]] MString MMakeVisible(const MString& text);
