#pragma once

#include "ui/image/MBitmap.h"

#include <string>
#include <sys/types.h>

/// A display of a test's own, which nobody sees: Xvfb with one screen. It ends with the object, or with the
/// process.
class MTestXServer {
public:
    explicit MTestXServer(const std::string& screen = "640x480x24");
    MTestXServer(const MTestXServer&) = delete;
    MTestXServer& operator=(const MTestXServer&) = delete;
    ~MTestXServer() { Kill(); }

    /// As ":7".
    [[nodiscard]] const std::string& GetName() const { return name; }
    /// Runs a command of the shell on this display, and gives what it prints.
    std::string Run(const std::string& command) const;
    /// What the screen shows.
    [[nodiscard]] MBitmap TakePicture() const;
    void Kill();

private:
    std::string name;
    pid_t process = -1;
};
