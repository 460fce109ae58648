// SPDX-License-Identifier: GPL-3.0-or-later
// What the operator does while the disk fails or the program is killed: two stations with standards, a
// remark, a skipped and an added sample, an undo, carried-over values, F10, a restore, a recalculation and
// both saves.
#pragma once

#include <string>

namespace kelp {

inline std::string Create(const char* samples) {
  return std::string("type frmCreateBase.Text1(1) 93.3 70\ntype frmCreateBase.Text1(2) ") + samples +
         "\nclick frmCreateBase.cmdCreateBase(0)\nshow run.ProcNum\nshow frmAcquire.txtBlank(0)\n";
}

inline std::string Value(const char* number) {
  return std::string("click frmAcquire.Command1\nread ") + number + " 2\nclick frmAcquire.Command1\n";
}

/// For a configuration by which two reads make a value.
inline std::string Story() {
  std::string script = "click frmMain.Command1(0)\nanswer Yes\nclick frmLogin.cmdOK\n" + Create("3") +
                       "click frmAcquire.Command1\n" + Value("0.0051");
  script += "click frmAcquire.Option1(1)\n" + Value("5.1011") + Value("44.2022");
  script +=
      "click frmAcquire.Option1(2)\n" + Value("1.5310") + Value("5.0312") + Value("2.1234") + Value("1.0617");
  script +=
      "key frmAcquire F9\ntype dlgRunRem.Text1 torn\nclick dlgRunRem.OKButton\n"
      "show frmAcquire.datalog(1,13)\nclick frmAcquire.Command5\n" +
      Value("3.4567") + Value("1.9203");
  script +=
      "click frmWhatsNext.Option1(1)\nclick frmWhatsNext.NextButton\n" + Value("4.1010") + Value("2.2020");
  script += "click frmAcquire.cmdUndo\nshow frmAcquire.datalog(4,4)\n" + Value("2.3030");
  script += "click frmWhatsNext.Option1(2)\nclick frmWhatsNext.NextButton\n" + Value("0.0053");
  script += "click frmWhatsNext.Option1(0)\nanswer Yes\nclick frmWhatsNext.NextButton\n" + Create("1") +
            Value("2.5050");
  script += "answer Yes\nanswer Yes\nkey frmAcquire F10\nclick frmLogin.cmdOK\nclick frmAcquire.Command1\n" +
            Value("1.3131");
  return script +
         "answer Yes\nkey frmAcquire F6\nclick frmWhatsNext.Option1(5)\nclick frmWhatsNext.NextButton\n";
}

}  // namespace kelp
