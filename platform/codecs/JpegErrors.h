// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <csetjmp>
#include <cstdio>
// libjpeg wants the declarations of stdio before its own.
#include <jpeglib.h>

namespace brivolant::codecs {

/// What libjpeg says while it works. An error jumps to `jump`; a warning that costs pixels is
/// noted, one that costs none is passed over.
struct JpegErrors {
  jpeg_error_mgr base;
  std::jmp_buf jump;
  std::array<char, JMSG_LENGTH_MAX> message;
  /// Coded data is missing or wrong.
  bool damaged;
  /// The file ended before its end marker.
  bool ended;
  /// It ended, or its data did, before the first row of blocks was there: nothing is.
  bool nothing;
  /// We ended the work, not the file.
  bool stopped;
};

/// Makes `errors` hear what the (de)compressor says. Set `jump` before each call of the library.
void Install(JpegErrors& errors, jpeg_common_struct& info);

}  // namespace brivolant::codecs
