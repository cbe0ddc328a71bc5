#include <gtest/gtest.h>
#include <map>

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "app/forms/main_form_fixture.h"
#include "support/forms/list_clicks.h"

namespace {

using bwp::test::ClickRow;

// What a screen reader speaks for a control: its own name after that of its label, if there is one.
std::string Heard(QWidget& control) {
  QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&control);
  QString heard = interface->text(QAccessible::Name);
  for (const auto& [label, relation] : interface->relations(QAccessible::Label)) {
    heard = label->text(QAccessible::Name) + QLatin1Char(' ') + heard;
  }
  return heard.toStdString();
}

class AccessibleTexts : public bwp::test::MainFormTest {
 protected:
  void Press(const char* window, const char* button) {
    QTest::mouseClick(Find<QWidget>(window)->findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
  }

  // Opens every window of the program, with a text in each label.
  void ShowAllWindows() {
    folder.Write("Bytewarp.cfg", "#TRUE#,4,\"" + folder.Path() + "\"\n");
    StartOnFile(3000);
    Entry("menuopen")->trigger();
    ClickRow(*Find<QWidget>("Loader")->findChild<QAbstractItemView*>(QStringLiteral("Flist")), "file.bin");
    Entry("sav")->trigger();
    Entry("menucopy")->trigger();
    Entry("menusplitjoin")->trigger();
    Press("Divide", "Join");
    Press("Fjoin", "HelpSJ");
    Press("Divide", "Split");
    Find<QWidget>("Fsel")->findChild<QLineEdit*>(QStringLiteral("Ftext"))->setText(QStringLiteral("part"));
    Press("Fsel", "ActionB");
    for (const char* window : {"Loader", "Saver", "Divide", "Fjoin", "Fsel", "Helpsplit", "Dialog"}) {
      ASSERT_TRUE(Find<QWidget>(window)->isVisible()) << window;
    }
  }
};

TEST_F(AccessibleTexts, EveryLabelIsHeardAsItReads) {
  ShowAllWindows();
  std::map<std::string, std::string> seen;
  for (QLabel* const label : form->findChildren<QLabel*>()) {
    const std::string text = label->text().toStdString();
    seen[label->objectName().toStdString()] = text;
    EXPECT_NE(Heard(*label).find(text), std::string::npos) << text << " is heard as " << Heard(*label);
  }
  EXPECT_EQ(seen["Labsize"], "2.93 KB");
  EXPECT_EQ(seen["Warning"], "Split current file ?");
  EXPECT_FALSE(seen["Lab"].empty());
}

TEST_F(AccessibleTexts, EveryListToOpenIsHeardByItsNameAndItsValue) {
  ShowAllWindows();
  const QList<QComboBox*> boxes = form->findChildren<QComboBox*>();
  EXPECT_EQ(boxes.size(), 5) << "a drive list in each of four dialogs, and the presets";
  for (QComboBox* const box : boxes) {
    box->setCurrentIndex(0);
    const std::string heard = Heard(*box);
    const QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(box);
    EXPECT_EQ(interface->text(QAccessible::Value), box->currentText());
    EXPECT_NE(heard.find(box->objectName() == QStringLiteral("Drive1") ? "Drive" : "Preset"),
              std::string::npos)
        << heard;
  }
}

}  // namespace
