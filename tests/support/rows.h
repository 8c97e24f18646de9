// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>

#include <type_traits>

namespace Vela::Test {

/// The table of a test function, made in its _data function; a row may hold functions as well as values:
/// @code
/// const Rows<QSize, std::function<void(Stage&)>> row("size", "end");
/// row("small, closed", {90, 40}, [](Stage& stage) { stage.window.close(); });
/// @endcode
template <typename... Values>
class Rows {
public:
  template <typename... Names>
  explicit Rows(Names... columns) {
    static_assert(sizeof...(Names) == sizeof...(Values));
    (QTest::addColumn<Values>(columns), ...);
  }

  void operator()(const QByteArray& name, const std::type_identity_t<Values>&... values) const {
    (QTest::newRow(name.constData()) << ... << values);
  }
};

} // namespace Vela::Test
