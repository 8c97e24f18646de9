// SPDX-License-Identifier: MIT
#pragma once

#include "accessible.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace Driven {

enum EButton : int { LeftButton = 1, RightButton = 3 }; // as X counts them

/// The hands of a person: keys and mouse as the X server gets them from a device.
namespace Hands {
/// Such as "ctrl+o" or "Escape", one after another.
void press(const QStringList& keys);
void type(const QString& text);
void click(const QPoint& at);
void drag(const QPoint& from, const QPoint& to, EButton button);
/// Takes the mouse to a corner, where nothing is under it.
void moveAway();
/// Gives the active window another size.
void resizeWindow(const QSize& size);
} // namespace Hands

/// The program in a process of its own, with settings and files that nobody else has.
class Program {
public:
  /// Ends it in any case.
  ~Program();

  /// @return whether it introduced itself to assistive technologies.
  bool start(const QString& executable);
  /// @return whether it ended by itself within the time limit.
  bool hasEnded();
  int exitCode() const { return m_process.exitCode(); }

  QString path(const QString& name) const { return m_folder.filePath(name); }

  /// What is seen now with this role and name; null where there is nothing.
  Accessible find(AtspiRole role, const QString& name) const { return m_application.find(role, name); }
  Accessible find(const Accessible::Condition& condition) const { return m_application.find(condition); }
  /// The same, waited for; null after the time limit.
  Accessible await(AtspiRole role, const QString& name) const;
  /// Its main window.
  Accessible window() const;
  QImage picture(const QRect& part) const;
  QString tree() const { return m_application.tree(); }

private:
  QTemporaryDir m_folder;
  QProcess m_process;
  Accessible m_application;
};

/// How long anything may take on a machine that is busy.
constexpr int TimeLimit = 20000; // ms

} // namespace Driven
