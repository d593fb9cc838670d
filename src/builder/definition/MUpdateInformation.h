#pragma once

#include "foundation/base/MList.h"
#include "foundation/xml/MXMLItem.h"

/// What an update or a package says of itself: the "updateinformation" of its file, and an `update` of the index
/// that a server answers with.
struct MUpdateInformation {
    MString name;              ///< plain text
    MString text;              ///< the description, rich text
    MString time;              ///< "2014-12-23 14:19:26"
    MString baseTime;          ///< the time of the version that it is laid over
    MString installationName;  ///< by which the product is found
    MString showInfo;          ///< rich text that is shown when it is installed; empty for none
    MString execute;           ///< a file in the product's directory to run then; empty for none
    bool restarts = false;     ///< whether the update manager ends afterwards
    bool isPackage = false;    ///< an addition that users choose, rather than an update

    [[nodiscard]] static MUpdateInformation Read(const MXMLItem& item);
    /// Writes all but the base time and the installation's name, which an index does not have.
    void WriteTo(MXMLItem& item) const;
    /// Writes everything.
    void WriteInformation(MXMLItem& item) const;
    /// Adds what no installation takes; each text is to be read behind a name of the offer.
    void Check(MList<MString>& faults) const;
};

/// Whether a text is a time as "2014-12-23 14:19:26" that exists.
[[nodiscard]] bool MIsOfferTime(const MString& text);
