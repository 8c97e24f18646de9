// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVarLengthArray>

namespace Vela::UiBase {

/// A text in small letters without accents and mnemonics, cut into words: what people type is compared with
/// it.
struct MatchText {
  MatchText() = default;
  explicit MatchText(const QString& text);

  /// Cut at blanks, marks, and where a small letter is followed by a capital one.
  qsizetype wordCount() const { return starts.size(); }
  QStringView word(qsizetype i) const;

  QString folded;                       ///< The words, with one blank between.
  QVarLengthArray<qsizetype, 6> starts; ///< Where each begins.
  quint64 letters = 0;                  ///< A bit a letter, to tell quickly what cannot match.

private:
  void beginWord();
};

/// How well a text answers what was typed: 0 for not at all, higher for better. In falling order: the text
/// begins with it, a word does, each typed word begins a word, it is made of the beginnings of words ("sm"
/// and "smome" for "Smooth Mesh"), it stands inside, words begin with it but for one typing error, its
/// letters stand there in order.
int matchQuality(const MatchText& typed, const MatchText& text);

/// The best that matchQuality() answers.
constexpr int bestQuality = 1000;

} // namespace Vela::UiBase
