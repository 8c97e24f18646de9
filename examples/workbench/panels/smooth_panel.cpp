// SPDX-License-Identifier: MIT
#include "smooth_panel.h"

#include <ui_base/core/language.h>
#include <ui_base/popups/flyout_base.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>

namespace Workbench {
namespace {

constexpr int StandardIterations = 10;
constexpr int MostIterations = 200;
constexpr int StandardStrength = 50;  // percent
constexpr double FullStep = 0.5;      // a step inwards of full strength
constexpr double PassBand = 1.0 / 13; // which waves of the surface stay, whatever the strength
constexpr int SliderWidth = 140;      // px

QSpinBox* makeSpinBox(int most, QWidget* parent) {
  auto* const box = new QSpinBox(parent);
  box->setRange(1, most);
  box->setAlignment(Qt::AlignRight);
  return box;
}

} // namespace

SmoothPanel::SmoothPanel(QWidget* parent)
    : QWidget(parent),
      m_iterationsLabel(new QLabel(this)),
      m_strengthLabel(new QLabel(this)),
      m_iterations(makeSpinBox(MostIterations, this)),
      m_slider(new QSlider(Qt::Horizontal, this)),
      m_strength(makeSpinBox(100, this)),
      m_preview(new QCheckBox(this)) {
  m_iterationsLabel->setBuddy(m_iterations);
  m_strengthLabel->setBuddy(m_strength);
  m_slider->setRange(1, 100);
  m_slider->setPageStep(10);
  m_slider->setMinimumWidth(SliderWidth);
  m_preview->setChecked(true);

  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(m_iterationsLabel, 0, 0);
  grid->addWidget(m_iterations, 0, 2);
  grid->addWidget(m_strengthLabel, 1, 0);
  grid->addWidget(m_slider, 1, 1);
  grid->addWidget(m_strength, 1, 2);
  grid->addWidget(m_preview, 2, 0, 1, 3);

  setStandardValues();
  Vela::UiBase::keepTranslated(this, [this] { retranslate(); });
  connect(m_slider, &QSlider::valueChanged, m_strength, &QSpinBox::setValue);
  connect(m_strength, &QSpinBox::valueChanged, m_slider, &QSlider::setValue);
  connect(m_strength, &QSpinBox::valueChanged, this, &SmoothPanel::changed);
  connect(m_iterations, &QSpinBox::valueChanged, this, &SmoothPanel::changed);
  connect(m_preview, &QCheckBox::toggled, this, &SmoothPanel::changed);
  connect(this, &SmoothPanel::ResetValues, this, &SmoothPanel::setStandardValues);
}

void SmoothPanel::retranslate() {
  m_iterationsLabel->setText(tr("&Iterations"));
  m_iterations->setAccessibleName(tr("Iterations"));
  m_strengthLabel->setText(tr("&Strength"));
  m_strength->setAccessibleName(tr("Strength"));
  m_strength->setSuffix(tr(" %"));
  m_slider->setAccessibleName(tr("Strength"));
  m_preview->setText(tr("&Preview"));
}

SmoothOptions SmoothPanel::options() const {
  SmoothOptions options;
  options.iterations = m_iterations->value();
  options.inwards = FullStep * m_strength->value() / 100;
  options.outwards = 1 / (1 / options.inwards - PassBand);
  return options;
}

bool SmoothPanel::isPreviewWanted() const { return m_preview->isChecked(); }

void SmoothPanel::setStandardValues() {
  m_iterations->setValue(StandardIterations);
  m_strength->setValue(StandardStrength);
  m_slider->setValue(StandardStrength);
}

Vela::UiBase::FlyoutBase* makeSmoothFlyout(QWidget* parent) {
  using namespace Vela::UiBase;
  auto* const flyout =
      new FlyoutBase(QString(), new SmoothPanel, ApplyButton | ResetButton | CancelButton, parent);
  Vela::UiBase::keepTranslated(flyout, [flyout] {
    flyout->SetTitle(QCoreApplication::translate("Workbench::SmoothPanel", "Smoothing"));
  });
  flyout->SetKeepOpenInView(true); // the preview is there to be seen from all sides
  flyout->hide();
  return flyout;
}

} // namespace Workbench
