// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

namespace Vela::UiBase {

/// The dynamic property that carries a command's identifier on the widgets that show the command.
inline constexpr char CMDID_PROP[] = "CMDID_PROP";

} // namespace Vela::UiBase

/// Gives a command class its identifier: the class name of its meta-object, as static className() and as
/// commandId(). The class needs Q_OBJECT.
///
/// @code
/// class OpenCommand : public Vela::UiBase::CommandBase {
///   Q_OBJECT
///   COMMAND_ID(OpenCommand)
/// public:
///   explicit OpenCommand(Vela::UiBase::CmdsViewController* controller);
///   bool onExecuteAsync(bool checked) override;
/// };
/// @endcode
#define COMMAND_ID(Class)                                                                                    \
public:                                                                                                      \
  static QString className() {                                                                               \
    static_assert(QtPrivate::HasQ_OBJECT_Macro<Class>::Value, "COMMAND_ID needs Q_OBJECT");                  \
    static const QString name = QString::fromLatin1(Class::staticMetaObject.className());                    \
    return name;                                                                                             \
  }                                                                                                          \
  QString commandId() const override { return className(); }                                                 \
                                                                                                             \
private:
