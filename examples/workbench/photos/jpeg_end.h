// SPDX-License-Identifier: MIT
#pragma once

class QIODevice;

namespace Workbench {

/// Whether a JPEG file goes on to the end of its picture. Of one that was cut off, decoders make a picture
/// that is grey from there on, and do not tell. True for what is no JPEG file.
/// @param file  open for reading, at any position, where it is not left
bool hasJpegEnd(QIODevice& file);

} // namespace Workbench
