#pragma once

#include "foundation/base/MDateTime.h"
#include "foundation/text/MString.h"

// What users tell the maker: a form that the maker's web server takes (docs/notes.md).

/// Where that form is, without its scheme.
[[nodiscard]] MString MGetNoteAddress();

/// What proves to the form that the program of a maker speaks: the day of the month, multiplied by the number
/// that the form knows.
[[nodiscard]] MString MMakeNoteToken(const MDateTime& now = MDateTime::NowUTC());

/// Posts a note to the form at `url`. Waits for the server for a few seconds, whatever it does; only the
/// system's resolver of names may take longer. Raises what `MHTTPStream` raises, "The note has not been taken
/// ({0} {1})." (0x201) for a status outside of 2xx, and what the server says (0), which says nothing to a
/// note that it has taken.
void SubmitNote(const MString& url, const MString& subject, const MString& token, const MString& text,
                const MString& email = MString(), const MString& attachmentName = MString(),
                const MString& attachment = MString());
