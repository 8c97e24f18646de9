// SPDX-License-Identifier: MIT
#include "workbench_subject.h"

#include <workbench/commands/about_command.h>
#include <workbench/commands/dark_palette_command.h>
#include <workbench/commands/find_command_command.h>
#include <workbench/commands/inspect_command.h>
#include <workbench/commands/keyboard_command.h>
#include <workbench/commands/language_command.h>
#include <workbench/commands/mesh_info_command.h>
#include <workbench/commands/open_recent_command.h>
#include <workbench/commands/placement_command.h>
#include <workbench/commands/quit_command.h>
#include <workbench/commands/reset_layout_command.h>
#include <workbench/commands/volume_panel_command.h>
#include <workbench/main_window.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/pages/workbench_pages.h>
#include <workbench/photos/photo_command.h>
#include <workbench/photos/photo_view.h>

#include <QCryptographicHash>
#include <QFileInfo>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

QString hashOf(const void* data, std::size_t bytes, QCryptographicHash& hash) {
  hash.addData(QByteArray::fromRawData(static_cast<const char*>(data), qsizetype(bytes)));
  return QString::fromLatin1(hash.result().toHex().left(12));
}

QString describe(const Mesh& mesh) {
  QCryptographicHash hash(QCryptographicHash::Sha1);
  const auto& positions = mesh.positions();
  const auto& triangles = mesh.triangles();
  hashOf(positions.data(), positions.size() * sizeof(positions[0]), hash);
  return QStringLiteral("%1 triangles, %2")
      .arg(triangles.size())
      .arg(hashOf(triangles.data(), triangles.size() * sizeof(triangles[0]), hash));
}

QString describe(const TriangleSelection& selection) {
  QCryptographicHash hash(QCryptographicHash::Sha1);
  const auto triangles = selection.triangles();
  const QString text = hashOf(triangles.data(), triangles.size() * sizeof(triangles[0]), hash);
  return selection.isEmpty() ? QString()
                             : QStringLiteral("%1 triangles, %2").arg(selection.count()).arg(text);
}

QVariantList lengths(const Measurements& measurements) {
  QVariantList lengths;
  for (const auto& distance : measurements.distances())
    lengths.append(QString::number(double((distance.to - distance.from).length()), 'g', 6).toDouble());
  return lengths;
}

QVariantMap describe(const PhotoDocument& photos) {
  return {{QStringLiteral("count"), int(photos.count())},
          {QStringLiteral("position"), int(photos.position())},
          {QStringLiteral("file"), QFileInfo(photos.fileName()).fileName()}};
}

template <class... Commands>
bool isAnyOf(const CommandBase& command) {
  return (... || (dynamic_cast<const Commands*>(&command) != nullptr));
}

} // namespace

QVariantMap WorkbenchSubject::state() const {
  MeshView& view = *m_window.view();
  MeshDocument& document = view.document();
  return {
      {QStringLiteral("page"),
       m_window.pages().current() == MeshPage ? QStringLiteral("mesh") : QStringLiteral("photographs")},
      {QStringLiteral("file"), QFileInfo(document.fileName()).fileName()},
      {QStringLiteral("modified"), document.isModified()},
      {QStringLiteral("mesh"), describe(document.mesh())},
      {QStringLiteral("selection"), describe(document.selection())},
      {QStringLiteral("distances"), lengths(view.measurements())},
      {QStringLiteral("undo"), document.undoStack()->index()},
      {QStringLiteral("redo"), document.undoStack()->count() - document.undoStack()->index()},
      {QStringLiteral("photographs"), describe(m_window.photoView()->document())},
      {QStringLiteral("commands"), commandStates(*m_window.controller())},
  };
}

// Those of the photographs tell what they do with the row; how large one is shown depends on the window.
bool WorkbenchSubject::isRecorded(const CommandBase& command) const {
  return !isAnyOf<AboutCommand, DarkPaletteCommand, FindCommandCommand, InspectCommand, KeyboardCommand,
                  LanguageCommand, MeshInfoCommand, OpenRecentCommand, PlacementOverlayCommand,
                  PrintPlacementCommand, QuitCommand, ResetLayoutCommand, VolumePanelCommand, PhotoCommand>(
      command);
}

bool WorkbenchSubject::perform(const ToolOperation& operation) {
  return m_window.controller()->performOnView(operation) || m_window.pages().perform(operation);
}

bool WorkbenchSubject::isBusy() const {
  return m_window.pages().current() == PhotoPage && m_window.photoView()->document().isLoading();
}

} // namespace Workbench
