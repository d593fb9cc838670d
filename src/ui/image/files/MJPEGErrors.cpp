#include "ui/image/files/MJPEGErrors.h"

namespace {

constexpr const char* Texts[] = {"read error", "image too large", "too many scans"};

[[noreturn]] void OnError(j_common_ptr decoder) {
    MJPEGErrors& errors = *reinterpret_cast<MJPEGErrors*>(decoder->err);
    errors.manager.format_message(decoder, errors.text);
    std::longjmp(errors.place, 1);
}

void OnMessage(j_common_ptr, int) {}

}  // namespace

MJPEGErrors::MJPEGErrors() {
    jpeg_std_error(&manager);
    manager.error_exit = OnError;
    manager.emit_message = OnMessage;
    manager.addon_message_table = Texts;
    manager.first_addon_message = ReadError;
    manager.last_addon_message = TooManyScans;
}

void MJPEGFail(j_common_ptr decoder, MJPEGErrors::Code code) {
    decoder->err->msg_code = code;
    decoder->err->error_exit(decoder);
}
