#pragma once

#include <cstdlib>
#include <optional>
#include <string>

/// A variable of the environment for the time of a test.
class MTestVariable {
public:
    MTestVariable(const char* name, const std::string& value) : name(name) {
        if (const char* old = std::getenv(name)) before = old;
        setenv(name, value.c_str(), 1);
    }
    MTestVariable(const MTestVariable&) = delete;
    MTestVariable& operator=(const MTestVariable&) = delete;
    ~MTestVariable() {
        if (before)
            setenv(name, before->c_str(), 1);
        else
            unsetenv(name);
    }

private:
    const char* name;
    std::optional<std::string> before;
};
