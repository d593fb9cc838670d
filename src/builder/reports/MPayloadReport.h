#pragma once

#include "builder/output/MBuilderOutput.h"
#include "builder/reports/MPayloadFile.h"

/// Shows what a payload holds.
class MPayloadReport {
public:
    /// The file and the output outlive the object.
    MPayloadReport(MPayloadFile& file, MBuilderOutput& output) : file(file), output(output) {}

    /// Form, sizes, flags and digest, then tables of parts, components, directories and items.
    void Print();
    /// The index as it is stored, with the line ends of the console.
    void PrintXML();

private:
    void PrintFields();
    void PrintParts();
    void PrintConfigurations();
    void PrintComponents();
    void PrintDirectories();
    void PrintItems();

    MPayloadFile& file;
    MBuilderOutput& output;
};
