// SPDX-License-Identifier: MIT
#include "commands_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/command_group.h>
#include <ui_base/commands/text.h>

using namespace Vela::UiBase;

namespace {

/// Knows a few words.
class Words : public QTranslator {
public:
  Words() { QCoreApplication::installTranslator(this); }
  ~Words() override { QCoreApplication::removeTranslator(this); }

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char*, int) const override {
    static const QHash<QString, QString> words{
        {QStringLiteral("Smooth"), QStringLiteral("Glätten")},
        {QStringLiteral("&Undo %1"), QStringLiteral("&Rückgängig: %1")},
        {QStringLiteral("&Fine…"), QStringLiteral("&Fein…")}};
    return QLatin1String(context) == QLatin1String("Test") ? words.value(QString::fromUtf8(source))
                                                           : QString();
  }
};

Text text(const char* source) { return {"Test", source}; }

} // namespace

/// Texts that follow the language of the program.
class TextTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void isLookedUpWhenItIsShown() {
    const Text step = text("&Undo %1").arg(text("&Fine…").inSentence());
    QCOMPARE(step.translated(), QStringLiteral("&Undo Fine"));
    const Words german;
    QCOMPARE(step.translated(), QStringLiteral("&Rückgängig: Fein"));
    QCOMPARE(step.source(), QStringLiteral("&Undo Fine"));
    // What a value says is no place for the next one.
    QCOMPARE(Text(QStringLiteral("%1 %2")).arg(QStringLiteral("%2")).arg(QStringLiteral("b")).translated(),
             QStringLiteral("%2 b"));
    QCOMPARE(Text(QStringLiteral("A && B &C...\tCtrl+C")).inSentence().translated(),
             QStringLiteral("A & B C"));
  }

  void commandsAndGroupsFollowTheLanguage() {
    CommandGroup group(QString(), text("Smooth"), QStringLiteral("group"));
    group.setText(text("&Undo %1").arg(text("Smooth")));
    group.setStatusTip(text("Smooth"));
    group.setExecutionNotificationMessage(StartNotification, text("&Fine…"));
    {
      const Words german;
      QCOMPARE(group.toolTip(), QStringLiteral("Glätten"));
      QCOMPARE(group.text(), QStringLiteral("&Rückgängig: Glätten"));
      QCOMPARE(group.statusTip(), group.toolTip());
      QCOMPARE(group.translatableText().source(), QStringLiteral("&Undo Smooth"));
      QCOMPARE(group.getExecutionNotificationMessage(StartNotification), QStringLiteral("&Fein…"));
      // A text that was set as a string stays, through whichever base it was set.
      static_cast<QAction&>(group).setText(QStringLiteral("mine"));
      QCOMPARE(group.translatableText(), Text(QStringLiteral("mine")));
    }
    QCOMPARE(group.toolTip(), QStringLiteral("Smooth"));
    QCOMPARE(group.text(), QStringLiteral("mine"));
  }

  void whoHearsOfANewTextMayEndTheCommand() {
    auto group = std::make_unique<CommandGroup>(QString(), text("Smooth"), QStringLiteral("group"));
    group->setText(text("&Fine…"));
    connect(group.get(), &QAction::changed, this, [&group] { group.reset(); });
    const Words german;
    QVERIFY(!group);
  }
};

VELA_TEST_MAIN(TextTest)
#include "text_test.moc"
