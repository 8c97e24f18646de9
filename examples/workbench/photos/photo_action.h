// SPDX-License-Identifier: MIT
#pragma once

namespace Workbench {

/// What can be done on the page of the photographs.
enum EPhotoAction : int {
  NoPhotoAction = -1,
  ZoomIntoPhoto = 0,
  ZoomOutOfPhoto = 1,
  OriginalPhotoSize = 2,
  FitPhotoToView = 3,
  PreviousPhoto = 4,
  NextPhoto = 5,
  ClosePhoto = 6,
};

/// All of them, in the order of a menu.
inline constexpr EPhotoAction PhotoActions[] = {
    PreviousPhoto, NextPhoto, ZoomIntoPhoto, ZoomOutOfPhoto, OriginalPhotoSize, FitPhotoToView, ClosePhoto};

} // namespace Workbench
