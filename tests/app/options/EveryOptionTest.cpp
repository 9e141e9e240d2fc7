// Walks every option of the dialog: each is changed by its own control, whatever that is, and
// something that a person could see of the program is another afterwards.
#include "app/options/OptionsTest.h"
#include "app/options/OptionsWords.h"
#include "controls/ucCalendar.h"
#include "notes/AttachmentEditor.h"
#include "platform/Files.h"

#include <QCryptographicHash>
#include <QLineEdit>
#include <QRadioButton>

#include <filesystem>

namespace corvanta {
namespace {

class EveryOption : public OptionsWindow {
 protected:
  void Begin() {
    Start();
    Run("UPDATE tblTransactions SET BankChk = 1 WHERE TransactionID MOD 2 = 0");
    Run("UPDATE tblTransactions SET Shares = 10, Price = 5, Action = 1, PayeeID = 12 WHERE "
        "TransactionID = 1");
    Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (12,#11/20/2026#,123.456789)");
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Empty',2,17,0,0)");
    empty_ = Count("SELECT Max(AccountID) FROM tblAccounts");
    Run("DELETE FROM tblSchedule");
    AddRent(*Date::FromIso("2026-12-01"), -100, AddToAccount::Ahead);
    AddRent(*Date::FromIso("2026-11-10"), -50, AddToAccount::No);
    AddRent(machine_.clock.Today().AddDays(4), -20, AddToAccount::No);
    SystemFiles().CreateFolder(DataFolder() + "/FileStore");
    SystemFiles().WriteNew(DataFolder() + "/FileStore/letter.txt", "Dear bank");
    Trigger("mnuViewRefresh");
  }

  static QString Picture(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    const QByteArrayView bytes(image.constBits(), image.sizeInBytes());
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
  }
  QString PictureOf(SortedTable& list) {
    list.scrollToTop();
    list.clearSelection();
    return Picture(*list.viewport()) + list.Widths();
  }
  // The status that a new transaction begins with.
  QString NewStatus() {
    QString status;
    InNextDialog([&status](QDialog& entry) {
      for (const auto* button : entry.findChildren<QRadioButton*>()) {
        if (button->isChecked()) status = button->objectName();
      }
    });
    Trigger("mnuTransAdd");
    return status;
  }
  // The files that leaving the program twice leaves behind.
  QString Backups() {
    std::filesystem::remove_all(DataFolder() + "/Backup");
    std::filesystem::remove_all(machine_.folder.Path("elsewhere"));
    std::filesystem::create_directory(machine_.folder.Path("elsewhere"));
    for (int leaving = 0; leaving < 2; ++leaving) {
      window_->close();
      window_->show();
    }
    QStringList files;
    for (const std::string& folder :
         {DataFolder() + "/Backup", machine_.folder.Path("elsewhere")}) {
      if (!FolderExists(folder)) continue;
      for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        files.append(QString::fromStdString(entry.path().string()));
      }
    }
    files.sort();
    return files.join(u'|');
  }
  // All that a person could see of the options of the section.
  QStringList Seen(const OptionSection& section) {
    window_->Show({kTransactionShow, empty_});
    QStringList seen{RightClicked()};
    Trigger("mnuViewPayees");
    seen.append(PictureOf(WindowTest::Find<SortedTable>("lvpayee")));
    Trigger("mnuViewInvestments");
    seen.append(PictureOf(WindowTest::Find<SortedTable>("lvinvest")));
    window_->Show({kTransactionShow, 1});
    QApplication::processEvents();
    seen.append(PictureOf(Register()));
    seen.append({TreeText(), ReminderText(), NewStatus()});
    if (section.title == "Backup") seen.append(Backups());
    seen.append(QString::number(WindowTest::Find<ucCalendar>("ucCalendar").isVisible()));
    seen.append(QString::number(Count("SELECT Count(*) FROM tblTransactions")));
    seen.append(
        QString::number(Count("SELECT Count(*) FROM tblSchedule WHERE DateFrom = #12/01/2026#")));
    seen.append(QString::number(machine_.opener.Associated().size()));
    AttachmentEditor attached(session_.Ledger(), machine_.Get(), 1);
    seen.append(QString::number(static_cast<int>(attached.Keeping())));
    return seen;
  }

  // Every other value that the option could have, as what is done to its control.
  std::vector<std::function<void(QDialog&)>> Others(const OptionWords& option) {
    const std::string name(option.control);
    const SettingInfo& info = InfoOf(option.setting);
    std::vector<std::function<void(QDialog&)>> others;
    switch (info.kind) {
      case SettingKind::Check:
        others.emplace_back([this, name](QDialog& dialog) {
          if (name == "chkUpdateScheduleDate") {
            machine_.prompts.ExpectTell("Options Selection", ScriptedPrompts::kAnyText);
          }
          Find<QCheckBox>(dialog, name.c_str()).click();
        });
        break;
      case SettingKind::Colour:
        others.emplace_back([name](QDialog& dialog) {
          InNextDialog([](QDialog& picker) {
            static_cast<QColorDialog&>(picker).setCurrentColor(QColor(120, 60, 10));
            picker.accept();
          });
          Find<ucColourButton>(dialog, name.c_str()).click();
        });
        break;
      case SettingKind::Choice:
        for (std::size_t choice = 0; choice < info.choices.size(); ++choice) {
          if (info.choices[choice] == info.defaultText) continue;
          others.emplace_back([name, choice, &info](QDialog& dialog) {
            if (name == "opPayment") {
              Find<QRadioButton>(dialog, (name + std::to_string(choice)).c_str()).click();
            } else {
              Choose(dialog, name.c_str(), QString::fromUtf8(info.choices[choice].data()));
            }
          });
        }
        break;
      default:
        others.emplace_back([this, name](QDialog& dialog) {
          Find<QLineEdit>(dialog, name.c_str())
              .setText(QString::fromStdString(machine_.folder.Path("elsewhere")));
        });
    }
    return others;
  }
  void Default() {
    Change([this](QDialog& dialog) {
      machine_.prompts.ExpectTell("Options Selection", ScriptedPrompts::kAnyText);
      Click(dialog, "cmdDefaults");
    });
  }

  std::int64_t empty_ = 0;
};

TEST_F(EveryOption, IsSeenToAct) {
  Begin();
  std::size_t count = 0;
  for (const OptionSection& section : OptionSections()) {
    Default();
    const QStringList unchanged = Seen(section);
    EXPECT_EQ(Seen(section), unchanged) << "nothing was changed in between";
    for (const OptionWords& option : section.options) {
      ++count;
      bool isSeen = false;
      for (const auto& other : Others(option)) {
        Default();
        const QStringList before = Seen(section);
        Change(other);
        isSeen = Seen(section) != before;
        if (isSeen) break;
      }
      EXPECT_TRUE(isSeen) << option.control << " does nothing";
    }
  }
  // What the dialog writes, and nothing that it does not show.
  EXPECT_EQ(count, OptionsEditor::Defaults().size());
}

}  // namespace
}  // namespace corvanta
