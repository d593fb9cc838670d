#pragma once

#include <cstdint>

/// The values of OpenGL that are used, by the names of its specification without their prefix.
namespace MGL {

inline constexpr uint32_t NO_ERROR = 0;
inline constexpr uint32_t VERSION = 0x1F02;
inline constexpr uint32_t EXTENSIONS = 0x1F03;
inline constexpr uint32_t MAX_TEXTURE_SIZE = 0x0D33;

inline constexpr uint32_t BLEND = 0x0BE2;
inline constexpr uint32_t DITHER = 0x0BD0;
inline constexpr uint32_t ZERO = 0;
inline constexpr uint32_t ONE = 1;
inline constexpr uint32_t SRC_ALPHA = 0x0302;
inline constexpr uint32_t ONE_MINUS_SRC_ALPHA = 0x0303;
inline constexpr uint32_t DST_COLOR = 0x0306;
inline constexpr uint32_t ONE_MINUS_DST_COLOR = 0x0307;
inline constexpr uint32_t FUNC_ADD = 0x8006;
inline constexpr uint32_t FUNC_REVERSE_SUBTRACT = 0x800B;

inline constexpr uint32_t QUADS = 7;
inline constexpr uint32_t VERTEX_ARRAY = 0x8074;
inline constexpr uint32_t COLOR_ARRAY = 0x8076;
inline constexpr uint32_t TEXTURE_COORD_ARRAY = 0x8078;
inline constexpr uint32_t UNSIGNED_BYTE = 0x1401;
inline constexpr uint32_t FLOAT = 0x1406;
inline constexpr uint32_t MODELVIEW = 0x1700;
inline constexpr uint32_t PROJECTION = 0x1701;

inline constexpr uint32_t TEXTURE_2D = 0x0DE1;
inline constexpr uint32_t TEXTURE0 = 0x84C0;
inline constexpr uint32_t TEXTURE1 = 0x84C1;
inline constexpr uint32_t TEXTURE_MAG_FILTER = 0x2800;
inline constexpr uint32_t TEXTURE_MIN_FILTER = 0x2801;
inline constexpr int32_t NEAREST = 0x2600;
inline constexpr uint32_t UNPACK_ALIGNMENT = 0x0CF5;
inline constexpr uint32_t PACK_ALIGNMENT = 0x0D05;
inline constexpr uint32_t ALPHA = 0x1906;
inline constexpr uint32_t BGRA = 0x80E1;
inline constexpr int32_t ALPHA8 = 0x803C;
inline constexpr int32_t RGB8 = 0x8051;
inline constexpr int32_t RGBA8 = 0x8058;

inline constexpr uint32_t TEXTURE_ENV = 0x2300;
inline constexpr uint32_t TEXTURE_ENV_MODE = 0x2200;
inline constexpr int32_t MODULATE = 0x2100;
inline constexpr int32_t REPLACE = 0x1E01;
inline constexpr int32_t COMBINE = 0x8570;
inline constexpr uint32_t COMBINE_RGB = 0x8571;
inline constexpr uint32_t COMBINE_ALPHA = 0x8572;
inline constexpr uint32_t SOURCE0_RGB = 0x8580;
inline constexpr uint32_t SOURCE1_RGB = 0x8581;
inline constexpr uint32_t SOURCE0_ALPHA = 0x8588;
inline constexpr uint32_t OPERAND0_RGB = 0x8590;
inline constexpr uint32_t OPERAND1_RGB = 0x8591;
inline constexpr int32_t SRC_COLOR = 0x0300;
inline constexpr int32_t PREVIOUS = 0x8578;

inline constexpr uint32_t FRAMEBUFFER = 0x8D40;
inline constexpr uint32_t COLOR_ATTACHMENT0 = 0x8CE0;
inline constexpr uint32_t FRAMEBUFFER_COMPLETE = 0x8CD5;

}  // namespace MGL
