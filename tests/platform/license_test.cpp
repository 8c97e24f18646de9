// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/rows.h>
#include <vlk_common_res/styles.h>
#include <vlk_license/license_service.h>

using namespace Vela::License;

namespace {

/// Takes one key.
class KeyProvider : public ILicenseProvider {
public:
  explicit KeyProvider(ELicenseState state) : m_state(state) {}

  ELicenseState state() const override { return m_state; }
  bool activate(const QString& key, QString* error) override {
    if (key == QLatin1String("GOOD-KEY"))
      m_state = FullLicense;
    else if (key == QLatin1String("BAD-KEY"))
      *error = QStringLiteral("No such key.");
    return m_state == FullLicense;
  }

private:
  ELicenseState m_state;
};

void installProvider(ELicenseState state) {
  LicenseService::Instance().setProvider(std::make_unique<KeyProvider>(state));
}

/// What a user does with the modal windows that come up, one after another; each step runs when its window is
/// there. A window nobody expects is closed, so that a failing test ends.
class User : public QObject {
public:
  using Step = std::function<void(QDialog*)>;

  explicit User(QList<Step> steps) : m_steps(std::move(steps)) {
    m_watch.setInterval(1);
    connect(&m_watch, &QTimer::timeout, this, &User::look);
    m_watch.start();
  }

  bool isDone() const { return m_steps.isEmpty() && !m_surprised; }

private:
  void look() {
    const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || dialog == m_handled || !QTest::qWaitForWindowExposed(dialog))
      return;
    m_handled = dialog;
    m_surprised = m_surprised || m_steps.isEmpty();
    if (!m_surprised)
      m_steps.takeFirst()(dialog);
    if (dialog && (m_surprised || QTest::currentTestFailed()))
      dialog->reject();
  }

  QList<Step> m_steps;
  QTimer m_watch;
  QPointer<QDialog> m_handled;
  bool m_surprised = false;
};

void type(QDialog* dialog, const QString& text) {
  for (const QChar letter : text)
    QTest::keyClick(dialog->windowHandle(), letter.toLatin1());
}

} // namespace

class LicenseTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() {
    LicenseService::Instance().setProvider(nullptr);
    m_window.reset();
  }

  void activationReportsItsReason() {
    auto& service = LicenseService::Instance();
    installProvider(NoLicense);
    for (const char* const key : {"  ", "unknown"}) {
      QString error;
      QVERIFY(!service.activate(key, &error) && !error.isEmpty());
    }
    QSignalSpy changed(&service, &LicenseService::stateChanged);
    QVERIFY(service.activate(" GOOD-KEY\n") && service.isLicensed());
    QCOMPARE(changed.count(), 1);
  }

  void theQuestionBeforeAPaidFeature_data() {
    const Vela::Test::Rows<ELicenseState, QList<User::Step>, bool> row("state", "steps", "answer");
    const auto box = [](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
      return [=](QDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), "Paid Feature");
        QVERIFY(qobject_cast<QMessageBox*>(dialog)->text().contains(QLatin1String("Cut & Fill")));
        Vela::Test::pressKey(*dialog, key, modifiers);
      };
    };
    const auto badKeyThen = [](const char* key) {
      return [=](QDialog* dialog) {
        const QPointer<QWidget> field = dialog->focusWidget();
        auto* const activate = dialog->findChild<QPushButton*>("license_activate_button");
        type(dialog, "BAD");
        activate->setFocus();
        for (const auto palette : {Vela::Resource::Dark, Vela::Resource::Light})
          Vela::Resource::Styles::Instance().setPalette(palette);
        QCOMPARE(dialog->focusWidget(), activate);
        field->setFocus();
        type(dialog, "-KEY\r");
        QCOMPARE(dialog->findChild<QLabel*>("license_error_label")->text(), "No such key.");
        type(dialog, key); // in place of the bad one
        Vela::Test::pressKey(*dialog, Qt::Key_Escape);
      };
    };
    const auto closeWindow = [this](QDialog*) { m_window.reset(); };
    row("trial, yes is the default", TrialLicense, {box(Qt::Key_Return)}, true);
    row("trial, N", TrialLicense, {box(Qt::Key_N, Qt::AltModifier)}, false);
    row("trial, closed with its window", TrialLicense, {closeWindow}, false);
    row("none, closed with its window", NoLicense, {closeWindow}, false);
    row("none, good key", NoLicense, {box(Qt::Key_Return), badKeyThen("GOOD-KEY\r")}, true);
    row("none, bad key", NoLicense, {box(Qt::Key_Return), badKeyThen("")}, false);
    row("full", FullLicense, {}, true);
  }
  void theQuestionBeforeAPaidFeature() {
    QFETCH(ELicenseState, state);
    QFETCH(QList<User::Step>, steps);
    QFETCH(bool, answer);
    installProvider(state);
    m_window = std::make_unique<QWidget>();
    m_window->show();
    const User user(steps);
    auto& service = LicenseService::Instance();
    QCOMPARE(service.confirmPaidFeature(m_window.get(), "&Cut && Fill"), answer);
    QVERIFY(user.isDone());
  }

private:
  std::unique_ptr<QWidget> m_window;
};

VELA_TEST_MAIN(LicenseTest)
#include "license_test.moc"
