// SPDX-License-Identifier: MIT
#pragma once

#include <support/test_case.h>
#include <ui_base/menus/menu_builder.h>

class Receiver : public QObject {
  Q_OBJECT

public:
  QStringList calls;

public Q_SLOTS:
  void open() { calls += QStringLiteral("open"); }
  void sign() { calls += QStringLiteral("sign"); }
  void grid(bool on) { calls += on ? QStringLiteral("grid on") : QStringLiteral("grid off"); }
};

class Builder : public Vela::UiBase::MenuBuilder {
public:
  using MenuBuilder::FindAction;
  using MenuBuilder::MenuBuilder;
  using MenuBuilder::SetMenuBarItemButtonStyle;
  QList<QMenu*> styled;

protected:
  void SetDropDownMenuStyle(QMenu* menu) override {
    styled += menu;
    MenuBuilder::SetDropDownMenuStyle(menu);
  }
};

inline Vela::UiBase::AppMenuItemSpecifier entry(const char* name, const char* text,
                                                const char* slot = nullptr) {
  return {.name = QLatin1String(name), .text = QLatin1String(text), .slot = slot};
}

inline QString id(const char* name) { return QString::fromLatin1(name); }

/// Knows which of the keys that lead around nobody in it has used.
class Window : public QMainWindow {
public:
  QStringList unused;

protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() >= Qt::Key_Escape && event->key() < Qt::Key_Shift)
      unused += QKeySequence(event->key()).toString();
  }
};

/// A window with an edit line and the items "file" (a menu), "edit" (another), "help" (a click).
struct Screen {
  Screen() : builder(new Builder(id("bar"), &window, &window)), edit(new QLineEdit) {
    window.setCentralWidget(edit);
    edit->setObjectName(id("line"));
    builder->SetReceiver(&receiver);
    builder->AddMenuBarItem(id("file"), QIcon(), id("&File"));
    Vela::UiBase::AppMenuItemSpecifier grid = entry("grid", "&Grid", SLOT(grid(bool)));
    grid.checkable = true;
    builder->AddDropDownMenu(
        id("file"),
        {entry("open", "&Open", SLOT(open())), Vela::UiBase::AppMenuItemSpecifier::Separator(), grid,
         Vela::UiBase::AppMenuItemSpecifier::SubMenu(id("recent"), id("&Recent"), {entry("one", "One")})});
    builder->AddMenuBarItem(id("edit"), QIcon(), id("&Edit"));
    builder->AddDropDownMenu(id("edit"), {&undo, nullptr, &redo}, &undo);
    builder->AddMenuBarItem(id("help"), SLOT(open()), QIcon(), id("&Help"), id("Opens the help"));
    builder->Start();
    window.resize(400, 300);
    window.show();
    edit->setFocus();
  }

  bool isReady() { return QTest::qWaitForWindowActive(&window); }
  QToolButton* item(const char* name) const { return builder->GetMenuBarItem(id(name)).data(); }
  QMenu* menu(const char* name) const { return builder->GetMenu(id(name)); }
  bool isOnlyOpen(const char* name) const {
    bool result = true;
    for (const char* const each : {"file", "edit"})
      result = result && menu(each)->isVisible() == (qstrcmp(each, name) == 0);
    return result;
  }

  /// What has the focus, which menu is open at which entry, what was called, "!" when the bar stays.
  QString state() const {
    QStringList facts{window.focusWidget()->objectName()};
    if (const auto* const open = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
      facts += {open->objectName(),
                open->activeAction() ? open->activeAction()->text().remove(u'&').toLower() : QString()};
    if (!receiver.calls.isEmpty())
      facts += receiver.calls.join(u',');
    return facts.join(u'/') + (builder->CanHide() ? QString() : id("!"));
  }

  void click(const char* name) { QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, center(name)); }
  void moveTo(const char* name) { QTest::mouseMove(window.windowHandle(), center(name)); }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    const QWidget* const popup = QApplication::activePopupWidget();
    QTest::keyClick(popup ? popup->windowHandle() : window.windowHandle(), key, modifiers);
  }
  void alt(Qt::Key letter) { key(letter, Qt::AltModifier); }
  QPoint center(const char* name) const { return item(name)->mapTo(&window, item(name)->rect().center()); }

  Receiver receiver;
  QAction undo{id("&Undo")};
  QAction redo{id("Re&do")};
  Window window;
  Builder* builder;
  QLineEdit* edit;
};
