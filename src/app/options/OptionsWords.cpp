#include "app/options/OptionsWords.h"

#include "platform/TextCase.h"

#include <array>
#include <string>

namespace corvanta::inline app {
namespace {

constexpr std::array kLists{
    OptionWords{Setting::Ledger, "chkLedger", "&Rows in two colours, like a ledger",
                "Every other row of a list has the second colour. Off, all rows stand on the plain "
                "background and the two colours below do nothing."},
    OptionWords{Setting::Alt1, "cmdAlt1", "First row colour",
                "The background of the first, third and fifth row of a list, while the desktop is "
                "light. Black stands for the colour that it had at first."},
    OptionWords{Setting::Alt2, "cmdAlt2", "Second row colour",
                "The background of the rows between, while the desktop is light. Black stands for "
                "the colour that it had at first."},
    OptionWords{Setting::Grid, "chkGrids", "&Grid lines between rows",
                "Draws a thin line below each row of a list."}};

constexpr std::array kRegister{
    OptionWords{Setting::FUcleared, "cmdFUcleared", "Text of uncleared transactions",
                "What no statement shows yet. The colour is made lighter or darker where it could "
                "not be read. Black stands for the colour that it had at first."},
    OptionWords{Setting::Fcleared, "cmdFcleared", "Text of cleared transactions",
                "What a statement shows. Reconciled ones have the desktop's own text colour. Black "
                "stands for the colour that it had at first."},
    OptionWords{Setting::ShowDesc, "chkDescription", "Show the d&escription",
                "The column of descriptions in the register. View, Columns has it, too."},
    OptionWords{Setting::ShowRef, "chkRef", "Show the &reference",
                "The column of references in the register. View, Columns has it, too."},
    OptionWords{Setting::ShowStatus, "chkStatus", "Show the s&tatus",
                "The column of statuses in the register. View, Columns has it, too."},
    OptionWords{Setting::Payment, "opPayment", "New transactions are",
                "The status that a new transaction begins with. It can be changed there before it "
                "is saved."},
    OptionWords{Setting::AutoFill, "chkAutofil", "&Autofill on a right click",
                "A right click in the register while no transaction is chosen offers the earlier "
                "transactions of a payee and category to copy from. Off, it opens an empty editor; "
                "Transactions, Autofill offers them all the same."}};

constexpr std::array kAccounts{
    OptionWords{Setting::AccountNo, "chkAccountNo", "Show account &numbers",
                "Adds the number of each account to its name in the tree."},
    OptionWords{Setting::Closed, "chkClosed", "&Include closed accounts",
                "Closed accounts stand in the tree and the list of accounts, marked as closed, and "
                "their transactions are counted where accounts are added up."},
    OptionWords{Setting::Investment, "chkInvestment", "Balances with the &value of investments",
                "The balance of an account then counts what it holds of shares and funds at the "
                "latest price known. Off, it is the money alone."},
    OptionWords{Setting::NoDecimal, "cmbInvestmentDecimal", "Decimals of prices",
                "How many decimals the prices and numbers of shares are shown and rounded with, "
                "and the interest of the loan calculator."}};

constexpr std::array kSchedules{
    OptionWords{Setting::Calendar, "chkCalendar", "S&how the calendar",
                "The calendar stands below the accounts, with the days on which something is due; "
                "without it they have its room."},
    OptionWords{Setting::NoReminders, "cmbReminders", "Remind ahead",
                "How far ahead of today the reminders list what is due. With None they list what "
                "is due today and before."},
    OptionWords{Setting::Overdue, "chkOverDue", "Show &overdue items",
                "The reminders then also list what should have been paid before today."},
    OptionWords{Setting::NoShedule, "cmbScheduled", "Post schedules ahead",
                "How far ahead schedules that post by themselves put their payments into the "
                "accounts, as a forecast. With None they post nothing. What was posted before "
                "stays."},
    OptionWords{Setting::UpdateSchedule, "chkUpdateScheduleDate",
                "&Update a schedule's date when it is posted",
                "A schedule's date moves on to the next payment that is still to be posted. While "
                "schedules are posted ahead it is better left off: the date would lie at the end "
                "of the forecast."}};

constexpr std::array kBackup{
    OptionWords{Setting::BFreq, "cmbBackup", "Make a backup",
                "How often a backup is made by itself when the program is left."},
    OptionWords{Setting::SkipBackup, "chkSkipBackup", "S&kip the backup",
                "No backup is made by itself, however often it would be due. File, Backup still "
                "makes one."},
    OptionWords{
        Setting::Backup, "txtBackup", "Backup file",
        "Where backups are written: a file, or a folder for it. Without one they go into the "
        "folder Backup beside the data file; another disk is safer."},
    OptionWords{Setting::BackupFS, "chkBackupstore", "Back up &attached files, too",
                "The copies of attached files that are kept beside the data file go into the "
                "backup with it."}};

constexpr std::array kFiles{
    OptionWords{Setting::LocalFS, "chkLocalstore", "&Keep a copy of attached files",
                "A file that is attached to a transaction is copied into the folder FileStore "
                "beside the data file. Off, the transaction only remembers where the file lies, "
                "and loses it when the file is moved."},
    OptionWords{Setting::AttachInside, "chkAttachInside", "Keep attached files &in the data file",
                "A file that is attached is put into the encrypted data file itself and goes "
                "wherever that goes; the option above then does nothing."},
    OptionWords{Setting::Association, "chkAssociate", "&Open QIF and OFX files with Corvanta",
                "A double click on such a file, as banks offer them, then begins its import. Off, "
                "the desktop opens them as it did before."}};

constexpr std::array kSections{
    OptionSection{"Lists", kLists},       OptionSection{"Register", kRegister},
    OptionSection{"Accounts", kAccounts}, OptionSection{"Schedules", kSchedules},
    OptionSection{"Backup", kBackup},     OptionSection{"Files", kFiles}};

// What is said of the option, in one text to look into.
std::string AllWords(const OptionSection& section, const OptionWords& option) {
  const SettingInfo& info = InfoOf(option.setting);
  std::string words;
  for (const std::string_view part :
       {section.title, option.label, option.tip, info.name, info.meaning}) {
    words += part;
    words += '\n';
  }
  for (const std::string_view choice : info.choices) {
    words += choice;
    words += '\n';
  }
  // The mark of a label's letter is none of its letters.
  std::erase(words, '&');
  return FoldCase(words);
}

}  // namespace

std::span<const OptionSection> OptionSections() {
  return kSections;
}

bool IsFound(const OptionSection& section, const OptionWords& option, std::string_view looked) {
  const std::string words = AllWords(section, option);
  const std::string folded = FoldCase(looked);
  std::string_view rest = Trim(folded);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    if (words.find(rest.substr(0, end)) == std::string::npos) return false;
    rest = Trim(rest.substr(end));
  }
  return true;
}

}  // namespace corvanta::inline app
