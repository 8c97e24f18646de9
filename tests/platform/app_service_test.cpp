// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>
#include <vlk_app_service/shutdown_protocol.h>

#include <array>
#include <utility>

using namespace Vela::Services;

namespace {

class Delegate : public ShutdownProtocol {
public:
  Delegate(QString name, QStringList& notes) : m_name(std::move(name)), m_notes(notes) {}

  bool mayShutDown() override {
    m_notes << m_name + QLatin1Char('?');
    whenAsked();
    return agrees;
  }
  void onShutDown() override {
    m_notes << m_name + QLatin1Char('!');
    whenTold();
  }

  bool agrees = true;
  std::function<void()> whenAsked = [] {};
  std::function<void()> whenTold = [] {};

private:
  QString m_name;
  QStringList& m_notes;
};

ApplicationService& service() { return ApplicationService::GetInstance(); }

} // namespace

class AppServiceTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() { m_notes.clear(); }

  void workspaceSwitchingCounts() {
    QSignalSpy changes(&service(), &ApplicationService::workspaceSwitchingChanged);
    // The first one is one too many.
    for (const bool enable : {true, false, false, true, true}) {
      QCOMPARE(service().isWorkspaceSwitchingEnabled(), changes.count() == 0);
      service().EnableWorkspaceSwitching(enable);
    }
    QVERIFY(service().isWorkspaceSwitchingEnabled());
    QCOMPARE(changes, (QList<QVariantList>{{false}, {true}}));
  }

  void oneRefusalKeepsTheProgramRunning() {
    const auto a = added("a");
    const auto b = added("b");
    const auto c = added("c");
    b->agrees = false;
    QVERIFY(!service().requestShutdown());
    QCOMPARE(notes(), "a? b?");
    b->agrees = true;
    m_notes.clear();
    QVERIFY(service().requestShutdown());
    QCOMPARE(notes(), "a? b? c? a! b! c!");
  }

  void delegatesAreToldApartByOwner() {
    const auto faces = std::make_shared<std::array<ShutdownProtocol, 2>>();
    const std::shared_ptr<ShutdownProtocol> left(faces, &faces->front());
    const std::shared_ptr<ShutdownProtocol> right(faces, &faces->back());
    service().addShutdownProtocolDelegate(left);
    service().addShutdownProtocolDelegate(right);
    QCOMPARE(service().shutdownProtocolDelegateCount(), 1);
    service().removeShutdownProtocolDelegate(right);
    QCOMPARE(service().shutdownProtocolDelegateCount(), 0);
  }

  void delegatesMayLeaveAndDieMeanwhile() {
    const auto a = added("a");
    auto b = added("b");
    auto c = added("c");
    a->whenAsked = [&] { service().removeShutdownProtocolDelegate(b); };
    a->whenTold = [&] { c.reset(); };
    QVERIFY(service().requestShutdown());
    QCOMPARE(notes(), "a? c? a!");
  }

  void whoRegistersWhenOthersAreAskedIsAskedToo() {
    const auto a = added("a");
    std::shared_ptr<Delegate> late;
    a->whenAsked = [&] {
      late = added("l");
      late->agrees = false;
      QVERIFY(!service().requestShutdown()); // one at a time
    };
    QVERIFY(!service().requestShutdown());
    QCOMPARE(notes(), "a? l?");
  }

  void theConfigManagerKeepsValuesInItsFile() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("config.ini");
    const QString key = QStringLiteral("view/unit");
    {
      ConfigManager config(path);
      QSignalSpy changes(&config, &ConfigManager::valueChanged);
      QCOMPARE(config.value(key, 7).toInt(), 7);
      config.setValue(key, "mm");
      config.setValue(key, "mm");
      QCOMPARE(changes.count(), 1);
      QCOMPARE(changes.first().first().toString(), key);
      config.setValue("recent", QStringList({QStringLiteral("ä.obj"), "b"}));
      config.setValue("dropped", 1);
      config.remove("dropped");
      config.remove("dropped");
      QCOMPARE(changes.count(), 4);
      QVERIFY(config.save());
    }
    const ConfigManager config(path);
    QCOMPARE(config.value(key).toString(), "mm");
    QCOMPARE(config.value("recent").toStringList().first(), QStringLiteral("ä.obj"));
    QVERIFY(!config.contains("dropped"));
    ConfigManager nowhere(path + QStringLiteral("/config.ini")); // in what is no folder
    nowhere.setValue("a", 1);
    QVERIFY(!nowhere.save());
  }

  void theSettingsCanBeReplaced() {
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    auto replacement = std::make_unique<ConfigManager>(folder.filePath(QStringLiteral("own.ini")));
    ConfigManager* const own = replacement.get();
    service().setConfigManager(std::move(replacement));
    QCOMPARE(&service().GetConfigManager(), own);
    service().setConfigManager(nullptr);
    service().GetConfigManager().setValue("check", true);
    QVERIFY(service().GetConfigManager().save());
    const QString byName = QStringLiteral("vlk_ui_base_tests/vlk_ui_base_tests.ini");
    QVERIFY(QFile::exists(folder.filePath(byName)));
    QVERIFY(!QFile::exists(folder.filePath("own.ini")));
    service().setConfigManager(nullptr);
  }

private:
  std::shared_ptr<Delegate> added(const char* name) {
    auto delegate = std::make_shared<Delegate>(QLatin1String(name), m_notes);
    service().addShutdownProtocolDelegate(delegate);
    return delegate;
  }
  QString notes() const { return m_notes.join(QLatin1Char(' ')); }

  QStringList m_notes;
};

VELA_TEST_MAIN(AppServiceTest)
#include "app_service_test.moc"
