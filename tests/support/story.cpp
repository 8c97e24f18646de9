// SPDX-License-Identifier: MIT
#include "story.h"

#include "screen_record.h"
#include "test_case.h"
#include "widget_list.h"

#include <algorithm>

namespace Vela::Test::Story {

namespace {

constexpr int MostLines = 250;
const QString varies = QStringLiteral("(differs from time to time, or is long)");

QMap<QString, QStringList>& stories() {
  static QMap<QString, QStringList> byFunction;
  return byFunction;
}

/// "Class::function:row" of what runs now.
QString currentTitle() {
  const char* const row = QTest::currentDataTag();
  return QStringLiteral("%1::%2%3")
      .arg(QLatin1String(QTest::testObject()->metaObject()->className()),
           QLatin1String(QTest::currentTestFunction()),
           row ? QLatin1Char(':') + QString::fromUtf8(row) : QString());
}

/// What came and went.
QStringList changes(const QStringList& before, const QStringList& now) {
  const QSet<QString> old(before.begin(), before.end());
  const QSet<QString> current(now.begin(), now.end());
  QStringList changes;
  for (const QString& line : before) {
    if (!current.contains(line))
      changes += QLatin1Char('-') + line.section(QLatin1Char(';'), 0, 1);
  }
  for (const QString& line : now) {
    if (!old.contains(line))
      changes += QLatin1Char('+') + line;
  }
  return changes;
}

class Onlooker : public QObject {
public:
  bool isWatching = false;

  void look() {
    if (!isWatching || m_looks || !QTest::currentTestFunction())
      return;
    m_looks = true; // asking can turn the event loop
    const QString title = currentTitle();
    if (m_title != title)
      m_before.clear();
    m_title = title;
    const QStringList now = visibleWidgets();
    QStringList& story = stories()[title];
    if (const QStringList news = changes(m_before, now); !news.isEmpty())
      story << QString() << news;
    m_before = now;
    m_looks = false;
  }

  /// What is seen next begins a story.
  void begin() { m_title.clear(); }

  bool eventFilter(QObject* object, QEvent* event) override {
    static const QSet<int> inputs{QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                  QEvent::MouseMove,        QEvent::MouseButtonDblClick,
                                  QEvent::KeyPress,         QEvent::KeyRelease};
    const bool isClosing = event->type() == QEvent::Close && object->isWidgetType();
    if (isClosing || (inputs.contains(event->type()) && object->isWindowType()))
      look();
    return false;
  }

private:
  QString m_title;
  QStringList m_before;
  bool m_looks = false;
};

Onlooker& onlooker() {
  static auto* const onlooker = new Onlooker; // application objects come and go
  return *onlooker;
}

QString recordFile() {
  return QStringLiteral(VELA_STORIES "/%1.txt")
      .arg(QFileInfo(QCoreApplication::applicationFilePath()).baseName());
}

bool isRecording() { return qEnvironmentVariableIsSet("VELA_RECORD_STORIES"); }

/// A title in brackets, and under it what came and went.
QMap<QString, QStringList> recorded() {
  QFile file(recordFile());
  QMap<QString, QStringList> stories;
  if (!file.open(QIODevice::ReadOnly))
    return stories;
  QString title;
  const QStringList lines = QString::fromUtf8(file.readAll()).chopped(1).split(QLatin1Char('\n'));
  for (const QString& line : lines) {
    if (line.startsWith(QLatin1Char('[')))
      stories.insert(title = line.mid(1).chopped(1), {});
    else
      stories[title] += line;
  }
  return stories;
}

void record(QMap<QString, QStringList> told) {
  const auto before = recorded();
  for (auto then = before.begin(); then != before.end(); ++then) {
    if (told.value(then.key(), *then) == *then)
      told.insert(then.key(), *then);
    else
      told.insert(then.key(), {varies});
  }
  QFile file(recordFile());
  if (!file.open(QIODevice::WriteOnly))
    qFatal("Stories cannot be written.");
  told.removeIf([](const auto& story) { return story->isEmpty(); });
  for (auto story = told.begin(); story != told.end(); ++story) {
    const QStringList& lines = story->size() > MostLines ? QStringList(varies) : *story;
    file.write((QLatin1Char('[') + story.key() + QLatin1String("]\n") + lines.join(QLatin1Char('\n')) +
                QLatin1Char('\n'))
                   .toUtf8());
  }
}

} // namespace

void start() {
  onlooker().isWatching = (isRecording() || QFile::exists(recordFile())) && drawsAsRecorded();
  if (onlooker().isWatching)
    qApp->installEventFilter(&onlooker());
}

void look() { onlooker().look(); }

QStringList takeDifferences() {
  onlooker().begin();
  const auto told = std::exchange(stories(), {});
  if (isRecording()) {
    record(told);
    return {};
  }
  const auto then = recorded();
  QStringList different;
  for (auto story = told.begin(); story != told.end(); ++story) {
    const QStringList its = then.value(story.key(), *story);
    if (its == QStringList(varies) || its == *story)
      continue;
    qInfo().noquote() << "What is seen in" << story.key() << "is not as recorded:\n"
                      << firstDifference(*story, its);
    different += story.key().section(QLatin1String("::"), 1);
  }
  return different;
}

} // namespace Vela::Test::Story
