// SPDX-License-Identifier: MIT
#include "text_match.h"

#include <algorithm>
#include <bit>

namespace Vela::UiBase {

namespace {

quint64 bitOf(QChar letter) {
  const char16_t code = letter.unicode();
  if (code >= u'a' && code <= u'z')
    return quint64(1) << (code - u'a');
  return quint64(1) << (26 + code % 38);
}

/// Whether a word of the text goes on at this letter, rather than a new one beginning.
bool beginsWord(QChar before, QChar letter) {
  return !before.isLetterOrNumber() || (letter.isUpper() && before.isLower());
}

void appendFolded(QString& word, QChar letter) {
  if (letter.unicode() == 0xDF) // sharp s, which has no capital letter
    word += QLatin1String("ss");
  else
    word += letter.toCaseFolded();
}

/// Whether the word begins with what was typed, but for one letter that is wrong, lacking, too much, or has
/// changed places with the next.
bool beginsNearly(QStringView word, QStringView typed) {
  const auto parting = std::ranges::mismatch(typed, word);
  const qsizetype at = parting.in1 - typed.begin();
  if (at == typed.size())
    return true;
  const QStringView rest = typed.sliced(at);
  const QStringView there = word.sliced(at);
  if (there.startsWith(rest.sliced(1)))
    return true; // too much
  if (there.isEmpty())
    return false;
  if (there.sliced(1).startsWith(rest) || there.sliced(1).startsWith(rest.sliced(1)))
    return true; // lacking, wrong
  return rest.size() > 1 && there.size() > 1 && rest[0] == there[1] && rest[1] == there[0] &&
         there.sliced(2).startsWith(rest.sliced(2));
}

bool begins(QStringView word, QStringView typed) { return word.startsWith(typed); }

/// Short words are nearly everything.
bool beginsNearlyIfLong(QStringView word, QStringView typed) {
  return typed.size() < 4 ? word.startsWith(typed) : beginsNearly(word, typed);
}

bool someWord(const MatchText& text, QStringView typed, bool (*begins)(QStringView, QStringView)) {
  for (qsizetype i = 0; i < text.wordCount(); ++i) {
    if (begins(text.word(i), typed))
      return true;
  }
  return false;
}

/// Whether each typed word begins a word.
bool eachBegins(const MatchText& typed, const MatchText& text, bool (*begins)(QStringView, QStringView)) {
  for (qsizetype i = 0; i < typed.wordCount(); ++i) {
    if (!someWord(text, typed.word(i), begins))
      return false;
  }
  return true;
}

/// Whether the letters are beginnings of the words from one on, in order; words may be passed over.
bool areBeginnings(QStringView letters, const MatchText& text, qsizetype from) {
  if (letters.isEmpty())
    return true;
  for (qsizetype i = from; i < text.wordCount(); ++i) {
    const QStringView word = text.word(i);
    const auto common = std::ranges::mismatch(letters, word).in1 - letters.begin();
    for (qsizetype taken = common; taken > 0; --taken) {
      if (areBeginnings(letters.sliced(taken), text, i + 1))
        return true;
    }
  }
  return false;
}

/// How many letters lie between those of what was typed; negative when they are not there in order.
qsizetype gapsBetween(const QString& letters, const QString& text) {
  qsizetype at = -1;
  qsizetype gaps = 0;
  for (const QChar letter : letters) {
    const qsizetype next = text.indexOf(letter, at + 1);
    if (next < 0)
      return -1;
    gaps += at < 0 ? 0 : next - at - 1;
    at = next;
  }
  return gaps;
}

/// Between answers of one kind.
int less(qsizetype by) { return static_cast<int>(std::min<qsizetype>(by, 49)); }

int qualityOfAllLetters(const MatchText& typed, const MatchText& text) {
  const qsizetype at = text.folded.indexOf(typed.folded);
  if (at == 0)
    return bestQuality - less(text.folded.size() - typed.folded.size());
  if (at > 0 && text.folded[at - 1] == u' ')
    return 900 - less(at);
  if (eachBegins(typed, text, begins))
    return 850;
  QString letters = typed.folded;
  letters.remove(u' ');
  if (areBeginnings(letters, text, 0))
    return 800 - less(text.wordCount());
  if (at > 0)
    return 600 - less(at);
  if (eachBegins(typed, text, beginsNearlyIfLong))
    return 450 - less(text.wordCount());
  const qsizetype gaps = gapsBetween(letters, text.folded);
  return gaps < 0 || gaps > 2 * letters.size() ? 0 : 300 - less(gaps);
}

} // namespace

MatchText::MatchText(const QString& text) {
  const bool isPlain = std::ranges::all_of(text, [](QChar letter) { return letter.unicode() < 0x80; });
  folded.reserve(text.size() + 4);
  QChar before = u' ';
  for (const QChar letter : isPlain ? text : text.normalized(QString::NormalizationForm_KD)) {
    if (letter == u'&' || (!isPlain && letter.isMark()))
      continue;
    if (letter.isLetterOrNumber()) {
      if (beginsWord(before, letter))
        beginWord();
      appendFolded(folded, letter);
    }
    before = letter;
  }
  for (const QChar letter : std::as_const(folded)) {
    if (letter != u' ')
      letters |= bitOf(letter);
  }
}

void MatchText::beginWord() {
  if (!folded.isEmpty())
    folded += u' ';
  starts.append(folded.size());
}

QStringView MatchText::word(qsizetype i) const {
  const qsizetype end = i + 1 < starts.size() ? starts[i + 1] - 1 : folded.size();
  return QStringView(folded).sliced(starts[i], end - starts[i]);
}

int matchQuality(const MatchText& typed, const MatchText& text) {
  if (typed.folded.isEmpty())
    return bestQuality;
  switch (std::popcount(typed.letters & ~text.letters)) {
  case 0:
    return qualityOfAllLetters(typed, text);
  case 1:
    return eachBegins(typed, text, beginsNearlyIfLong) ? 400 - less(text.wordCount()) : 0;
  default:
    return 0;
  }
}

} // namespace Vela::UiBase
