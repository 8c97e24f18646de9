// SPDX-License-Identifier: MIT
#include "jpeg_end.h"

#include <QIODevice>

#include <algorithm>

namespace Workbench {
namespace {

constexpr char MarkerStart = '\xFF';
constexpr char ScanStart = '\xDA';
constexpr qsizetype ChunkSize = 1 << 16;

// Where the picture itself begins, after the segments with a small one and what else is known of it; -1 when
// the file is built in another way.
qint64 scanPosition(QIODevice& file) {
  qint64 position = 2;
  while (file.seek(position)) {
    const QByteArray head = file.read(4);
    if (head.size() < 4 || head[0] != MarkerStart)
      return -1;
    if (head[1] == ScanStart)
      return position;
    position += 2 + (quint8(head[2]) << 8U | quint8(head[3]));
  }
  return -1;
}

} // namespace

bool hasJpegEnd(QIODevice& file) {
  if (!file.seek(0) || file.read(2) != "\xFF\xD8")
    return true;
  const qint64 scan = scanPosition(file);
  if (scan < 0)
    return true;
  // Within the picture these two bytes never follow one another.
  const QByteArray end("\xFF\xD9");
  for (qint64 last = file.size(); last > scan; last -= ChunkSize - 1) {
    file.seek(std::max(scan, last - ChunkSize));
    if (file.read(last - file.pos()).contains(end))
      return true;
  }
  return false;
}

} // namespace Workbench
