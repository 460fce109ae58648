#include "desktop/machine/first_start.hpp"

#include <QMessageBox>
#include <QPushButton>

namespace kelp {

FirstChoice AskFirstChoice(const QString& folder, const QString& device) {
  QMessageBox box;
  box.setWindowTitle(QStringLiteral("Welcome to Kelp"));
  box.setTextFormat(Qt::PlainText);
  box.setText(QStringLiteral("This is the first start on this machine.\n\n"
                             "Drive c, where kelp.cfg lies, is the folder\n%1\n\n"
                             "Port 1 of the fluorometer is the device\n%2\n\n"
                             "Both can be changed in Machine settings, now or later. Without a fluorometer "
                             "at hand, a simulated one lets you try the program.")
                  .arg(folder, device));
  QPushButton* start = box.addButton(QStringLiteral("&Start"), QMessageBox::AcceptRole);
  const QPushButton* simulate =
      box.addButton(QStringLiteral("Try the simulated &fluorometer"), QMessageBox::ActionRole);
  const QPushButton* settings =
      box.addButton(QStringLiteral("&Machine settings..."), QMessageBox::ActionRole);
  box.setDefaultButton(start);
  box.setEscapeButton(start);
  box.exec();
  if (box.clickedButton() == simulate) return FirstChoice::Simulate;
  if (box.clickedButton() == settings) return FirstChoice::Settings;
  return FirstChoice::Start;
}

}  // namespace kelp
