// SPDX-License-Identifier: GPL-3.0-or-later
// The kinds of control that the screens are made of, as plain values. What a handler reads and
// writes here is what the operator sees; front ends show these values and report events.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/error.hpp"

namespace kelp {

struct Label {
  std::string Caption = {};
  std::string ToolTipText = {};
  bool Enabled = true;
  bool Visible = true;
};

struct Button {
  std::string Caption = {};
  std::string ToolTipText = {};
  bool Enabled = true;
  bool Visible = true;
};

struct TextBox {
  std::string Text = {};
  std::string ToolTipText = {};
  bool Enabled = true;
  bool Visible = true;
  /// What is wrong with a typed value; empty when it is fine. A box with a text here is marked.
  std::string Problem = {};
  bool Locked = false;  ///< its text is for reading only
};

struct OptionButton {
  std::string Caption = {};
  std::string ToolTipText = {};
  bool Enabled = true;
  bool Visible = true;
  bool Value = false;
};

struct CheckBox {
  std::string Caption = {};
  std::string ToolTipText = {};
  bool Enabled = true;
  bool Visible = true;
  bool Value = false;
};

struct ComboBox {
  std::string Text = {};
  std::string ToolTipText = {};
  bool Enabled = true;
  bool Visible = true;
  std::vector<std::string> List = {};
};

/// A table of text cells with colours; row 0 is the header row.
struct Grid {
  struct Cell {
    std::string Text;
    std::uint32_t BackColor = 0xFFFFFF;
  };

  Grid(int rows, int cols) : Rows(rows), Cols(cols), Cells(static_cast<std::size_t>(rows * cols)) {}

  Cell& At(int row, int col) { return Cells[Index(row, col)]; }
  [[nodiscard]] const Cell& At(int row, int col) const { return Cells[Index(row, col)]; }
  std::string& Text(int row, int col) { return At(row, col).Text; }
  [[nodiscard]] const std::string& Text(int row, int col) const { return At(row, col).Text; }

  int Rows;
  int Cols;
  std::vector<Cell> Cells;
  std::vector<int> ColWidth = {};  ///< twips; 0 for the default width
  int Row = 1;                     ///< the current cell
  int Col = 0;
  std::string ToolTipText = {};
  bool Enabled = true;
  bool Visible = true;

 private:
  [[nodiscard]] std::size_t Index(int row, int col) const {
    if (row < 0 || row >= Rows || col < 0 || col >= Cols)
      throw RunTimeError(ErrorKind::Subscript,
                         "grid cell " + std::to_string(row) + "," + std::to_string(col));
    return static_cast<std::size_t>(row * Cols + col);
  }
};

/// A control array: `Count` controls with indexes from `First`. Any other index is the error
/// "Subscript out of range".
template <class Control, int Count, int First = 0>
struct ControlArray {
  using Item = Control;
  static constexpr int kFirst = First;
  static constexpr int kCount = Count;
  static constexpr int kLast = First + Count - 1;

  Control& operator[](int index) { return Items[Slot(index)]; }
  const Control& operator[](int index) const { return Items[Slot(index)]; }
  auto begin() { return Items.begin(); }
  auto end() { return Items.end(); }

  std::array<Control, static_cast<std::size_t>(Count)> Items = {};

 private:
  static std::size_t Slot(int index) {
    if (index < First || index > kLast)
      throw RunTimeError(ErrorKind::Subscript, "control index " + std::to_string(index));
    return static_cast<std::size_t>(index - First);
  }
};

/// Whether a screen is on the display, and its title. Screens say in VisitControls which controls
/// they have: each once, by name; `alias` is the index under which a single control is known too.
struct Window {
  std::string Caption;
  bool Loaded = false;
  bool Visible = false;
};

}  // namespace kelp
