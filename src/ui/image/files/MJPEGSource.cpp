#include "ui/image/files/MJPEGSource.h"

#include "foundation/base/MException.h"
#include "streams/basic/MStream.h"
#include "ui/image/files/MJPEGErrors.h"

namespace {

void OnStartOrEnd(j_decompress_ptr) {}

int32_t ReadSome(MJPEGSource& source) {
    try {
        return source.stream->Read(source.buffer, sizeof source.buffer);
    } catch (const MException&) {
        return 0;
    }
}

boolean OnEmpty(j_decompress_ptr decoder) {
    MJPEGSource& source = *reinterpret_cast<MJPEGSource*>(decoder->src);
    const int32_t count = ReadSome(source);
    if (count <= 0) MJPEGFail(reinterpret_cast<j_common_ptr>(decoder), MJPEGErrors::ReadError);
    source.manager.next_input_byte = source.buffer;
    source.manager.bytes_in_buffer = static_cast<size_t>(count);
    return TRUE;
}

void OnSkip(j_decompress_ptr decoder, long count) {
    jpeg_source_mgr& manager = *decoder->src;
    while (count > static_cast<long>(manager.bytes_in_buffer)) {
        count -= static_cast<long>(manager.bytes_in_buffer);
        OnEmpty(decoder);
    }
    if (count <= 0) return;
    manager.next_input_byte += count;
    manager.bytes_in_buffer -= static_cast<size_t>(count);
}

}  // namespace

MJPEGSource::MJPEGSource(MStream& stream) : stream(&stream) {
    manager.init_source = OnStartOrEnd;
    manager.fill_input_buffer = OnEmpty;
    manager.skip_input_data = OnSkip;
    manager.resync_to_restart = jpeg_resync_to_restart;
    manager.term_source = OnStartOrEnd;
}
