// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace Vela::License {

class LicenseService;

/// Shows the licence state and takes a key. It stays open after a key was taken, to say so.
class LicenseDialog : public QDialog {
  Q_OBJECT

public:
  /// \a service must outlive the dialog.
  explicit LicenseDialog(LicenseService& service, QWidget* parent = nullptr);

private:
  void buildWidgets();
  void buildLayout();
  void applyLooks();
  void updateState();
  void onKeyEdited(const QString& key);
  void onActivate();
  void showMessage(const QString& text, bool isError);
  QString stateText() const;
  QString productPageText() const;

  LicenseService& m_service;
  bool m_messageIsError = false;
  QLabel* m_title = nullptr;
  QLabel* m_state = nullptr;
  QLabel* m_productPage = nullptr;
  QLabel* m_keyLabel = nullptr;
  QLineEdit* m_key = nullptr;
  QLabel* m_message = nullptr;
  QPushButton* m_activate = nullptr;
  QPushButton* m_close = nullptr;
};

} // namespace Vela::License
