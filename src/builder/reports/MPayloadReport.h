#pragma once

#include "builder/output/MBuilderOutput.h"
#include "builder/reports/MPayloadFile.h"

/// Shows what a payload holds.
class MPayloadReport {
public:
    /// The file and the output outlive the object.
    MPayloadReport(MPayloadFile& file, MBuilderOutput& output) : file(file), output(output) {}

    /// Form, sizes, flags and digest, then tables of parts, components, directories and items; of an update what
    /// it offers, and what it does with which files.
    void Print();
    /// The index as it is stored, with the line ends of the console.
    void PrintXML();

private:
    void PrintFields();
    void PrintOffer();
    void PrintParts();
    void PrintConfigurations();
    void PrintComponents();
    void PrintChanges();
    void PrintOps(const MXMLItem& parent, const MString& folder);
    void PrintDirectories();
    void PrintItems();

    MPayloadFile& file;
    MBuilderOutput& output;
};
