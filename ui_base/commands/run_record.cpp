// SPDX-License-Identifier: MIT
#include "run_record.h"

#include <QCoreApplication>

namespace Vela::UiBase {

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(Vela::UiBase::RunRecord)
};

} // namespace

QString runSourceText(ERunSource source) {
  switch (source) {
  case RunByMouse:
    return Texts::tr("Mouse");
  case RunByKey:
    return Texts::tr("Key");
  case RunByMenu:
    return Texts::tr("Menu");
  case RunByProgram:
    break;
  }
  return Texts::tr("Program");
}

QString runOutcomeText(ERunOutcome outcome) {
  switch (outcome) {
  case RunUnderway:
    return Texts::tr("Running");
  case RunSucceeded:
    return Texts::tr("Done");
  case RunDeclined:
    return Texts::tr("Nothing done");
  case RunStopped:
    return Texts::tr("Cancelled");
  case RunFailed:
    return Texts::tr("Failed");
  case RunRefused:
    return Texts::tr("Refused");
  case RunAbandoned:
    break;
  }
  return Texts::tr("Abandoned");
}

} // namespace Vela::UiBase
