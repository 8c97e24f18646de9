// SPDX-License-Identifier: MIT
#include "info_view_loader.h"

#include "info_view.h"
#include "info_view_plugin.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <dlfcn.h>
#include <unistd.h>
#endif

namespace Vela::UiBase {

namespace {

QString folderOfThisLibrary() {
#ifdef Q_OS_WIN
  HMODULE module = nullptr;
  wchar_t path[MAX_PATH] = {};
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&folderOfThisLibrary), &module);
  GetModuleFileNameW(module, path, MAX_PATH);
  return QFileInfo(QString::fromWCharArray(path)).path();
#else
  Dl_info info = {};
  if (dladdr(reinterpret_cast<const void*>(&folderOfThisLibrary), &info) == 0 || !info.dli_fname)
    return {};
  return QFileInfo(QFile::decodeName(info.dli_fname)).canonicalPath();
#endif
}

QStringList pluginFolders() {
  if (qEnvironmentVariableIsSet("VLK_PLUGIN_PATH"))
    return qEnvironmentVariable("VLK_PLUGIN_PATH").split(QDir::listSeparator(), Qt::SkipEmptyParts);
  return {folderOfThisLibrary() + QLatin1String("/vlk_ui_base/plugins")};
}

bool isSandboxPossible() {
#ifdef Q_OS_UNIX
  return geteuid() != 0 || qEnvironmentVariableIntValue("QTWEBENGINE_DISABLE_SANDBOX") == 1;
#else
  return true;
#endif
}

bool isGiven(const QString& need) {
  if (need == QLatin1String("SharedOpenGLContexts"))
    return QCoreApplication::testAttribute(Qt::AA_ShareOpenGLContexts);
  return need == QLatin1String("Sandbox") && isSandboxPossible();
}

/// Why the plugin cannot be used, as far as that is known before it is loaded; empty when it can.
QString obstacle(const QJsonObject& metaData) {
  if (metaData.value(QLatin1String("IID")).toString() != QLatin1String(VELA_INFO_VIEW_PLUGIN_IID))
    return QStringLiteral("it is none for information panels of this version");
  const QJsonObject own = metaData.value(QLatin1String("MetaData")).toObject();
  const QJsonArray needs = own.value(QLatin1String("Needs")).toArray();
  for (const auto& need : needs) {
    if (!isGiven(need.toString()))
      return QStringLiteral("%1 is lacking").arg(need.toString());
  }
  return {};
}

InfoView* createView(const QString& file, QWidget* parent) {
  QPluginLoader loader(file);
  QString reason = obstacle(loader.metaData());
  if (reason.isEmpty()) {
    auto* const plugin = qobject_cast<InfoViewPlugin*>(loader.instance());
    if (InfoView* const view = plugin ? plugin->CreateView(parent) : nullptr)
      return view;
    reason = plugin ? QStringLiteral("it made no view") : loader.errorString();
  }
  qDebug("The plugin %s is not used: %s", qUtf8Printable(file), qUtf8Printable(reason));
  return nullptr;
}

} // namespace

InfoView* createPluginView(QWidget* parent) {
  const QStringList folders = pluginFolders();
  for (const QString& folder : folders) {
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& file : files) {
      if (!QLibrary::isLibrary(file.fileName()))
        continue;
      if (InfoView* const view = createView(file.absoluteFilePath(), parent))
        return view;
    }
  }
  return nullptr;
}

} // namespace Vela::UiBase
