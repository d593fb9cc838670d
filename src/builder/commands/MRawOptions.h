#pragma once

#include "builder/definition/MBuilderOptions.h"

#include <string>
#include <vector>

/// The options as the parser fills them: bytes of UTF-8.
struct MRawOptions {
    std::string input;
    std::string description;
    std::string output;
    std::string stub;
    std::string form = "exe";
    int64_t partSize = MBuilderOptions::DefaultPartSize;
    std::string compression = "bzip2";
    int32_t level = 9;
    int32_t threads = 0;
    std::vector<std::string> defines;
    bool showsXML = false;
    int64_t downloadPartSize = MBuilderOptions::DefaultDownloadPartSize;
    std::string id;
    std::vector<std::string> mirrors;
    std::string newer;
    std::vector<std::string> olderDefines;
    std::string name;
    std::string offerDescription;
    std::string time;
    std::string showInfo;
    std::string execute;
    bool restarts = false;
    std::string base;
    std::string key;
    std::vector<std::string> files;
};
