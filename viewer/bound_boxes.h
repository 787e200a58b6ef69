// The part that the two bounds dialogs share: the boxes for a lower and an upper bound.
#pragma once

#include "platform/basic_controls.h"
#include "platform/box.h"
#include "platform/input_controls.h"

namespace quarvel::viewer {

class BoundBoxes {
 public:
  // Below `top` on the form.
  BoundBoxes(platform::Form& form, int top);

  // Writes a bound into a box.
  static void Put(platform::TextBox& box, double bound);
  // The number in a box; 0 for what is no number.
  static double Get(const platform::TextBox& box);

  // The first step of both dialogs: when a box holds no number says so, clears each such box and
  // gives false.
  bool BothAreNumbers();
  // Exchanges the two texts and says so.
  void Reverse();
  // Brings bounds beyond the limit of a model back to it, each with a message.
  void HoldWithinLimit();

  platform::Frame fraValues;
  platform::Label lblLower;
  platform::TextBox txtLwrBnd;
  platform::Label lblUpper;
  platform::TextBox txtUprBnd;

 private:
  void Say(const platform::Box& box);

  platform::Form& form_;
};

}  // namespace quarvel::viewer
