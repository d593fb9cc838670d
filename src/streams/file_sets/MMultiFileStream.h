#pragma once

#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MStdFileStream.h"

/// A series of part files that are read and written as one stream. An index, an XML document, names them in
/// the order of the stream:
///
///     index = "<" name "PartSize=" bytes ">" { part } "</" name ">"
///     part  = "<File" "Name=" name "Size=" bytes "md5=" digits "/>"
///
/// `Name` is the plain name of a file, `Size` its length and `md5` its MD5 (RFC 1321) as 32 hexadecimal
/// digits; all numbers are decimal. `PartSize` is how long the writer made each part but the last; readers
/// do not need it. The order of attributes, other attributes and other elements mean nothing.
///
/// Only the part in use is held open, however many there are. A stream that is not open is empty.
class MMultiFileStream final : public MStream {
public:
    /// The parts of a set: more are neither read nor written.
    static constexpr int32_t MaximumPartCount = 10000;
    /// The largest index that is read, in bytes.
    static constexpr int64_t MaximumIndexSize = 16 * 1024 * 1024;

    MMultiFileStream() = default;
    MMultiFileStream(const MMultiFileStream&) = delete;
    MMultiFileStream& operator=(const MMultiFileStream&) = delete;
    /// Closes without raising. A set that was being written is left without an index, which `Close` writes.
    ~MMultiFileStream() override = default;

    /// Opens the set of the index at `path` for reading, at its start. Each part is looked for in the
    /// directory of the index, then in the directories above, up to the topmost; its length is taken here.
    /// Raises "Could not find file {0}." (0x101) with the last place that was looked at, and for an index
    /// that cannot be used (0x100): "The index \"{0}\" has more than {1} bytes.", "The index \"{0}\" names
    /// more than {1} parts.", "The part name \"{1}\" in the index \"{0}\" is no plain file name." or "The
    /// size \"{1}\" in the index \"{0}\" is no number."; also what opening files, parsing the index,
    /// `MAddSize` and `Close` raise. A stream that could not be opened is closed.
    void Open(const MString& path);
    /// Begins a new set whose parts, of `partSize` bytes each but the last, will lie beside the index and
    /// bear its name with the number of the part and ".cab". Parts of these names are overwritten; an index
    /// at `path` stays until `Close` replaces it.
    /// Raises "Parts cannot be {0} bytes long." (2) unless there is at least one, and what `Close` raises.
    void Create(const MString& path, int64_t partSize);
    /// After writing computes the digests of the parts and saves the index, unless a `Write` has failed: a
    /// set with a gap gets none. Raises what reading the parts and writing the files raise; the stream is
    /// closed all the same.
    void Close();

    /// Where the part of a number, from 1, lies in a new set with its index at `indexPath`.
    [[nodiscard]] static MString MakePartPath(const MString& indexPath, int32_t number);

    [[nodiscard]] int32_t GetPartCount() const { return items.GetCount(); }
    // Of a part, from 0. Each raises "Index out of range." (0).
    /// As the index has it, without directory.
    [[nodiscard]] MString GetPartFileName(int32_t part) const;
    /// The length of the file, in bytes.
    [[nodiscard]] int64_t GetPartSize(int32_t part) const { return GetItem(part).size; }
    /// The length that the index tells, in bytes; 0 if it tells none.
    [[nodiscard]] int64_t GetStatedPartSize(int32_t part) const;
    /// Reads the file, and compares its length and digest with those of the index. The position stays.
    /// Raises what reading files raises.
    [[nodiscard]] bool IsPartValid(int32_t part) const;

    /// Fills part after part. Raises "Invalid operation (writing to a read-only multistream)." (0x100), "The
    /// set \"{0}\" would have more than {1} parts. Choose a larger part size." (0x100), and what creating and
    /// writing files raise.
    void Write(const void* block, int32_t count) override;
    /// Goes on to the next part only when more is wanted than the current one holds.
    int32_t Read(void* block, int32_t count) override;
    /// From the current position means from the start of the current part. The end of a part is a position
    /// of that part, not of the next one.
    /// Raises "Invalid seek origin." (2), and "Could not perform file seek." (0x100) for a position outside
    /// of the stream, which is then at the start of the part where the search ended.
    void Seek(int64_t position, MSeekOrigin origin) override;
    int64_t GetPosition() override;
    void Flush() override;
    /// True at the end of the last part; a set without parts has none.
    bool IsEnd() override;
    int64_t GetSize() override;
    bool IsOpen() override { return mode != Mode::Closed; }

private:
    enum class Mode : int32_t { Closed = -1, Reading = 0, Writing = 1 };

    class Item final : public MStdFileStream {
    public:
        explicit Item(MXMLItem& element) : element(element) {}

        MXMLItem& element;  ///< its `File` in the index
        int64_t size = 0;   ///< of the file, in bytes
    };

    void LoadIndex();
    void CheckElement(const MXMLItem& element) const;
    [[nodiscard]] MString FindPart(const MString& name) const;
    void AddItem(MXMLItem& element, const MString& path, MOpenFlags flags);
    void AddNewPart();
    void WriteIndex();
    /// Closes what is open and becomes a closed stream.
    void Forget() noexcept;

    [[nodiscard]] const Item& GetItem(int32_t part) const;
    /// The current part, open and at the offset.
    [[nodiscard]] Item& UseCurrent();
    void CloseUsed();
    void MoveTo(int32_t part, int64_t newOffset);
    void StepForWriting();

    Mode mode = Mode::Closed;
    MXMLItem index;
    MString indexPath;
    int64_t partSize = 0;
    MList<Item, MListOwning> items;
    int32_t current = 0;   ///< the part of the position; -1 before the first write
    int64_t offset = 0;    ///< of the position in the current part
    int32_t used = -1;     ///< the part that is held open, -1 for none
    bool isWhole = false;  ///< no write has failed
};
