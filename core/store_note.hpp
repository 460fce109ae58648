// SPDX-License-Identifier: GPL-3.0-or-later
// How the last stored value came to be: what a handler knows and the station's record keeps beside it.
#pragma once

namespace kelp {

/// The ways in which a value gets into a cell or a box.
enum class How {
  Typed,       ///< the operator typed it
  Autoread,    ///< saved by itself when it was stable
  Hand,        ///< saved by a click or the space bar
  F5,          ///< the raw reading, by key
  F7,          ///< the average, by key
  MeanBox,     ///< a mean box was clicked
  Skipped,     ///< [Skip] marked it as missing
  Calculated,  ///< the pigment calculation
  Remark,      ///< the run remarks
  Loaded,      ///< a station was loaded, begun or carried over
  Restored,    ///< brought back from the record
  Undone,      ///< taken back
};

/// What is known of the value that an event stored. The door sets it anew before every event.
struct StoreNote {
  How Way = How::Typed;
  int Reads = 0;  ///< number of reads of the item; 0 where it was not read
  double Sd = 0;  ///< their standard deviation
};

}  // namespace kelp
