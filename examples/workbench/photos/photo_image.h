// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_progress.h>

#include <QImage>
#include <QList>

class QPainter;

namespace Workbench {

class PhotoViewport;

/// A photograph, ready to be drawn at any zoom at once: it also keeps itself at half its size, at a quarter
/// and so on, a third more memory in all, and draws the one that is just large enough.
///
/// A value: copies share their pixels. Making one takes a moment; safe on any thread.
class PhotoImage {
public:
  /// None.
  PhotoImage() = default;
  /// @throws RunCancelled through @p progress.
  explicit PhotoImage(const QImage& image, const Vela::UiBase::RunProgress& progress = {});

  bool isNull() const noexcept { return m_levels.isEmpty(); }
  /// In pixels.
  QSize size() const { return isNull() ? QSize() : m_levels.constFirst().size(); }
  /// The smallest version that has a pixel for each device pixel at that zoom.
  const QImage& levelFor(double zoom) const;
  /// Draws what is seen of it; its pixels as such once they are large enough to be told apart.
  void paint(QPainter& painter, const PhotoViewport& viewport) const;

private:
  QList<QImage> m_levels; // the photograph, and each half as large as the one before
};

} // namespace Workbench
