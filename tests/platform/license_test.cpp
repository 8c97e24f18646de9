// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <vlk_common_res/styles.h>
#include <vlk_license/license_service.h>
#include <vlk_license/lock_badge.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>

using namespace Vela::License;
using Vela::Test::settle;

namespace {

const char* const LOCK = ":/resources/images/lock_normal.png";

/// Takes one key; what it says is set by the test.
class KeyProvider : public ILicenseProvider {
public:
  explicit KeyProvider(ELicenseState state) : m_state(state) {}

  ELicenseState state() const override { return m_state; }
  bool activate(const QString& key, QString* error) override {
    lastKey = key;
    if (key != QLatin1String("GOOD-KEY")) {
      *error = rejection;
      return false;
    }
    m_state = FullLicense;
    return true;
  }
  int trialDaysLeft() const override { return daysLeft; }
  QUrl productPage() const override { return QUrl(QStringLiteral("https://example.com/?a=1&b=\"2\"")); }

  void setState(ELicenseState state) { m_state = state; }

  QString lastKey;
  QString rejection = QStringLiteral("No such key.");
  int daysLeft = -1;

private:
  ELicenseState m_state;
};

KeyProvider* installProvider(ELicenseState state) {
  auto provider = std::make_unique<KeyProvider>(state);
  KeyProvider* const result = provider.get();
  LicenseService::Instance().setProvider(std::move(provider));
  return result;
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
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog == m_handled || !QTest::qWaitForWindowExposed(dialog))
      return;
    m_handled = dialog;
    if (m_steps.isEmpty()) {
      m_surprised = true;
      dialog->reject();
      return;
    }
    m_steps.takeFirst()(dialog);
    if (QTest::currentTestFailed() && m_handled != nullptr)
      m_handled->reject();
  }

  QList<Step> m_steps;
  QTimer m_watch;
  QPointer<QDialog> m_handled;
  bool m_surprised = false;
};

void press(QDialog* dialog, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QTest::keyClick(dialog->windowHandle(), key, modifiers);
}

void type(QDialog* dialog, const QString& text) {
  for (const QChar letter : text)
    QTest::keyClick(dialog->windowHandle(), letter.toLatin1());
}

void click(QDialog* dialog, QAbstractButton* button) {
  QVERIFY(button != nullptr);
  QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, {},
                    button->mapTo(dialog, button->rect().center()));
}

template <class T>
T* child(const QWidget* dialog, const char* name) {
  return dialog->findChild<T*>(QLatin1String(name));
}

QString errorText(const QDialog* dialog) {
  const auto* label = child<QLabel>(dialog, "license_error_label");
  return label->isVisible() ? label->text() : QString();
}

} // namespace

class LicenseTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() { LicenseService::Instance().setProvider(nullptr); }

  void isLicensedByDefault() {
    const auto& service = LicenseService::Instance();
    QVERIFY(service.isLicensed() && service.isUsable() && !service.isTrial());
    const User user({});
    QVERIFY(LicenseService::Instance().confirmPaidFeature(nullptr, QStringLiteral("Export")));
    QVERIFY(user.isDone());
  }

  void stateChangesAreAnnouncedOnce() {
    auto& service = LicenseService::Instance();
    QSignalSpy changed(&service, &LicenseService::stateChanged);
    installProvider(TrialLicense);
    QCOMPARE(changed.count(), 1);
    QVERIFY(service.isTrial() && service.isUsable() && !service.isLicensed());
    KeyProvider* provider = installProvider(TrialLicense);
    service.refresh();
    QCOMPARE(changed.count(), 1);
    provider->setState(NoLicense);
    service.refresh();
    QCOMPARE(changed.count(), 2);
    QVERIFY(!service.isUsable());
    service.setProvider(nullptr);
    QCOMPARE(changed.count(), 3);
    QVERIFY(service.isLicensed());
  }

  void activationReportsItsReason() {
    auto& service = LicenseService::Instance();
    KeyProvider* provider = installProvider(NoLicense);
    QString error;
    QVERIFY(!service.activate(QStringLiteral("  "), &error) && !error.isEmpty());
    QVERIFY(provider->lastKey.isEmpty());
    QVERIFY(!service.activate(QStringLiteral("bad"), &error));
    QCOMPARE(error, QStringLiteral("No such key."));
    provider->rejection.clear();
    QVERIFY(!service.activate(QStringLiteral("bad"), &error) && !error.isEmpty());
    QVERIFY(!service.activate(QStringLiteral("bad")));

    QSignalSpy changed(&service, &LicenseService::stateChanged);
    QVERIFY(service.activate(QStringLiteral(" GOOD-KEY\n")));
    QCOMPARE(provider->lastKey, QStringLiteral("GOOD-KEY"));
    QCOMPARE(changed.count(), 1);
    QVERIFY(service.isLicensed());
  }

  void trialAsksWhetherToUseTheFeature_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("answer");
    QTest::newRow("yes is the default") << int(Qt::Key_Return) << true;
    QTest::newRow("Y") << int(Qt::Key_Y) << true;
    QTest::newRow("N") << int(Qt::Key_N) << false;
    QTest::newRow("dismissed") << int(Qt::Key_Escape) << false;
  }

  void trialAsksWhetherToUseTheFeature() {
    QFETCH(int, key);
    installProvider(TrialLicense);
    QString title;
    QString text;
    const User user({[&](QDialog* box) {
      title = box->windowTitle();
      text = qobject_cast<QMessageBox*>(box)->text();
      const bool isLetter = key == Qt::Key_Y || key == Qt::Key_N;
      press(box, static_cast<Qt::Key>(key), isLetter ? Qt::AltModifier : Qt::NoModifier);
    }});
    QTEST(LicenseService::Instance().confirmPaidFeature(nullptr, QStringLiteral("&Cut && Fill")), "answer");
    QVERIFY(user.isDone());
    QCOMPARE(title, QStringLiteral("Paid Feature"));
    QVERIFY2(text.contains(QLatin1String("Cut & Fill")), qPrintable(text));
  }

  void withoutLicenceTheDialogDecides_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("answer");
    QTest::newRow("good key") << QStringLiteral("GOOD-KEY") << true;
    QTest::newRow("bad key") << QStringLiteral("BAD-KEY") << false;
    QTest::newRow("no key") << QString() << false;
  }

  void withoutLicenceTheDialogDecides() {
    QFETCH(QString, key);
    QFETCH(bool, answer);
    installProvider(NoLicense);
    QWidget window;
    window.show();
    QString error;
    const User user({[](QDialog* box) {
                       QCOMPARE(box->windowTitle(), QStringLiteral("Paid Feature"));
                       press(box, Qt::Key_Return);
                     },
                     [&](QDialog* dialog) {
                       QVERIFY(dialog->isModal());
                       type(dialog, key);
                       if (!key.isEmpty())
                         press(dialog, Qt::Key_Return);
                       error = errorText(dialog);
                       QCOMPARE(LicenseService::Instance().isLicensed(), answer);
                       press(dialog, Qt::Key_Escape);
                     }});
    QCOMPARE(LicenseService::Instance().confirmPaidFeature(&window, QStringLiteral("Export")), answer);
    QVERIFY(user.isDone());
    QCOMPARE(error == QLatin1String("No such key."), key == QLatin1String("BAD-KEY"));
  }

  void declinedActivationShowsNoDialog() {
    installProvider(NoLicense);
    for (const auto& decline :
         {User::Step([](QDialog* box) { press(box, Qt::Key_Escape); }), User::Step([](QDialog* box) {
            click(box, qobject_cast<QMessageBox*>(box)->button(QMessageBox::Cancel));
          })}) {
      const User user({decline});
      QVERIFY(!LicenseService::Instance().confirmPaidFeature(nullptr, QStringLiteral("Export")));
      QVERIFY(user.isDone());
    }
  }

  void boxClosedWithItsWindowIsANo_data() {
    QTest::addColumn<int>("state");
    QTest::newRow("trial") << int(TrialLicense);
    QTest::newRow("no licence") << int(NoLicense);
  }

  void boxClosedWithItsWindowIsANo() {
    QFETCH(int, state);
    installProvider(static_cast<ELicenseState>(state));
    auto window = std::make_unique<QWidget>();
    window->show();
    const User user({[&window](QDialog* /*box*/) { window.reset(); }});
    QVERIFY(!LicenseService::Instance().confirmPaidFeature(window.get(), QStringLiteral("Export")));
    QVERIFY(user.isDone() && window == nullptr);
  }

  void dialogIsOperatedByKeyboard() {
    KeyProvider* provider = installProvider(TrialLicense);
    provider->daysLeft = 12;
    const User user({[](QDialog* dialog) {
      auto* const key = child<QLineEdit>(dialog, "license_key_edit");
      auto* const activate = child<QPushButton>(dialog, "license_activate_button");
      auto* const close = child<QPushButton>(dialog, "license_close_button");
      auto* const state = child<QLabel>(dialog, "license_state_label");
      QVERIFY(key->hasFocus() && !activate->isEnabled() && close->isDefault());
      QVERIFY2(state->text().contains(QLatin1String("12")), qPrintable(state->text()));
      const auto widgets = dialog->findChildren<QWidget*>();
      for (const QWidget* widget : widgets)
        QVERIFY(widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() ||
                !QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget))
                     ->text(QAccessible::Name)
                     .isEmpty());

      type(dialog, QStringLiteral("BAD"));
      QVERIFY(activate->isEnabled() && activate->isDefault());
      press(dialog, Qt::Key_A, Qt::AltModifier);
      QTRY_COMPARE(errorText(dialog), QStringLiteral("No such key."));
      QCOMPARE(key->selectedText(), QStringLiteral("BAD"));

      type(dialog, QStringLiteral("G"));
      QVERIFY(errorText(dialog).isEmpty());
      type(dialog, QStringLiteral("OOD-KEY"));
      press(dialog, Qt::Key_Tab);
      QVERIFY(activate->hasFocus());
      press(dialog, Qt::Key_Space);
      QVERIFY(LicenseService::Instance().isLicensed());
      QVERIFY(dialog->isVisible() && close->hasFocus() && key->text().isEmpty());
      QVERIFY(!errorText(dialog).isEmpty());
      QVERIFY(!state->text().contains(QLatin1String("12")));
      press(dialog, Qt::Key_Return);
      QVERIFY(!dialog->isVisible());
    }});
    LicenseService::Instance().showLicenseDialog(nullptr);
    QVERIFY(user.isDone());
  }

  void dialogFollowsPaletteAndMouse() {
    KeyProvider* provider = installProvider(NoLicense);
    auto& styles = Vela::Resource::Styles::Instance();
    const User user({[&](QDialog* dialog) {
      const auto back = [dialog] { return dialog->grab().toImage().pixelColor(2, 2); };
      QCOMPARE(back(), styles.ColorWindowBack());
      styles.setPalette(Vela::Resource::Dark);
      QCOMPARE(back(), styles.ColorWindowBack());
      styles.setPalette(Vela::Resource::Light);
      QVERIFY(child<QLabel>(dialog, "license_product_page_label")
                  ->text()
                  .contains(QLatin1String("https://example.com/?a=1&amp;b=%222%22")));

      type(dialog, QStringLiteral("bad"));
      click(dialog, child<QPushButton>(dialog, "license_activate_button"));
      QCOMPARE(provider->lastKey, QStringLiteral("bad"));
      click(dialog, child<QPushButton>(dialog, "license_close_button"));
    }});
    LicenseService::Instance().showLicenseDialog(nullptr);
    QVERIFY(user.isDone());
  }

  void badgeCoversCornerAndTooltip() {
    QToolButton button;
    button.setToolTip(QStringLiteral("Own"));
    button.resize(50, 50);
    button.show();
    QPointer<QLabel> badge = attachLockBadge(&button, QLatin1String(LOCK), {3, 4}, QStringLiteral("Locked"));
    QCOMPARE(badge->parentWidget(), &button);
    QCOMPARE(badge->geometry(), QRect(3, 4, 16, 16));
    QVERIFY(badge->isVisible());
    QCOMPARE(badge->pixmap().devicePixelRatio(), button.devicePixelRatio());
    QCOMPARE(badge->pixmap().deviceIndependentSize(), QSizeF(16, 16));
    QCOMPARE(button.toolTip(), QStringLiteral("Locked"));

    QSignalSpy clicked(&button, &QToolButton::clicked);
    QTest::mouseClick(button.windowHandle(), Qt::LeftButton, {}, badge->geometry().center());
    QCOMPARE(clicked.count(), 1);

    removeLockBadge(&button);
    QVERIFY(badge.isNull());
    QCOMPARE(button.toolTip(), QStringLiteral("Own"));
    removeLockBadge(&button);
    QCOMPARE(button.toolTip(), QStringLiteral("Own"));
  }

  void attachingTwiceKeepsOneBadge() {
    QToolButton button;
    button.setToolTip(QStringLiteral("Own"));
    QLabel* const first = attachLockBadge(&button, QLatin1String(LOCK), {0, 0}, QStringLiteral("Locked"));
    QCOMPARE(attachLockBadge(&button, QLatin1String(LOCK), {8, 8}, QStringLiteral("Still locked")), first);
    QCOMPARE(button.findChildren<QLabel*>().size(), 1);
    QCOMPARE(first->pos(), QPoint(8, 8));
    QCOMPARE(button.toolTip(), QStringLiteral("Still locked"));
    removeLockBadge(&button);
    QCOMPARE(button.toolTip(), QStringLiteral("Own"));
  }

  void tooltipSetMeanwhileIsKeptForLater() {
    QAction action;
    action.setToolTip(QStringLiteral("Before"));
    QToolButton button;
    button.setDefaultAction(&action);
    attachLockBadge(&button, QLatin1String(LOCK), {}, QStringLiteral("Locked"));
    action.setToolTip(QStringLiteral("After"));
    QCOMPARE(button.toolTip(), QStringLiteral("Locked"));
    removeLockBadge(&button);
    QCOMPARE(button.toolTip(), QStringLiteral("After"));
    button.setToolTip(QStringLiteral("Free again"));
    QCOMPARE(button.toolTip(), QStringLiteral("Free again"));
  }

  void badgeToleratesMissingThings() {
    QCOMPARE(attachLockBadge(nullptr, QLatin1String(LOCK), {}, {}), nullptr);
    removeLockBadge(nullptr);
    auto button = std::make_unique<QToolButton>();
    const QPointer<QLabel> badge =
        attachLockBadge(button.get(), QStringLiteral(":/no/such.png"), {}, QStringLiteral("Locked"));
    QVERIFY(badge->pixmap().isNull());
    QCOMPARE(button->toolTip(), QStringLiteral("Locked"));
    button.reset();
    QVERIFY(badge.isNull());
    settle();
  }
};

VELA_TEST_MAIN(LicenseTest)
#include "license_test.moc"
