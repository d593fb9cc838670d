#pragma once

#include "streams/basic/MStream.h"

#include <cstdio>
#include <memory>

/// How a file is opened; combine with `|`.
enum MOpenFlags : int32_t {
    MOpenRead = 1,
    MOpenWrite = 2,
    MOpenCreate = 4,
};

constexpr MOpenFlags operator|(MOpenFlags left, MOpenFlags right) {
    return static_cast<MOpenFlags>(static_cast<int32_t>(left) | static_cast<int32_t>(right));
}

/// A file, buffered by the runtime library. Reading and writing may alternate.
/// Every operation but `Open`, `Close` and `IsOpen` raises "File stream is not initialized." (0x102)
/// while no file is open.
class MStdFileStream : public MStream {
public:
    MStdFileStream() = default;
    MStdFileStream(const MStdFileStream&) = delete;
    MStdFileStream& operator=(const MStdFileStream&) = delete;
    /// Closes without raising: a writer that wants to know calls `Close`.
    ~MStdFileStream() override;

    /// Closes first. Create with write puts an empty file in the place of what stands there, a link too;
    /// write keeps what the file holds; both read as well.
    /// An empty name opens the last one again.
    /// Raises "File \"{0}\" could not be created. Make sure there is no write-protected file already
    /// existing.", "File \"{0}\" could not be open. Make sure it exists.", "\"{0}\" is a device or a pipe
    /// where a file is expected." or, for a file to be written, that a link on the way is not followed
    /// (0x101).
    void Open(const MString& name, MOpenFlags flags);
    /// Does nothing when closed. Raises "Error writing to file \"{0}\". Probably disk full." (0x100) if what
    /// was still buffered could not be written and no operation has told so before; the file is closed all
    /// the same.
    virtual void Close();
    /// The name of the last opening.
    [[nodiscard]] const MString& GetFileName() const { return fileName; }

    /// Raises "Error writing to file \"{0}\". Probably disk full." (0x100).
    void Write(const void* block, int32_t size) override;
    /// Raises "Error reading from file \"{0}\"." (0x100).
    int32_t Read(void* block, int32_t size) override;
    /// A line that fills the buffer exactly is complete.
    MLineState ReadLine(char* buffer, int32_t size) override;
    /// Raises "Could not perform file seek." (0x100).
    void Seek(int64_t offset, MSeekOrigin origin) override;
    int64_t GetPosition() override;
    void Flush() override;
    /// Makes what was written survive a power cut, as far as the system can tell. Raises as `Write`.
    void Sync();
    /// Takes the space that a file of this size needs, as far as the system can; what the file holds stays.
    /// Raises as `Write`.
    void Reserve(int64_t size);
    /// True at or past the size that the file had when it was opened.
    bool IsEnd() override;
    void Truncate() override;
    int64_t GetSize() override;
    bool IsOpen() override { return readHandle || writeHandle; }

protected:
    void RequireOpen() const;
    [[noreturn]] void RaiseWriteError();
    [[noreturn]] void RaiseReadError();

    std::FILE* readHandle = nullptr;
    std::FILE* writeHandle = nullptr;

private:
    enum class Direction { None, Reading, Writing };

    /// The runtime library wants a file to be repositioned between reading and writing.
    void Turn(Direction wanted);
    /// Closes the handles and zeroes them; false if what was buffered is lost.
    [[nodiscard]] bool CloseHandles() noexcept;
    [[nodiscard]] std::FILE* GetHandle() const { return readHandle ? readHandle : writeHandle; }

    MString fileName;
    std::unique_ptr<char[]> runtimeBuffer;  ///< the runtime library's, as long as a file is open
    int64_t sizeAtOpening = 0;
    Direction direction = Direction::None;
    bool isLossTold = false;
};
