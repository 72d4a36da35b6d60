#include "core/session.h"
#include "payments/payments_fixture.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/main_window.h"
#include "ui/payments_area.h"
#include "ui/payments_compile_window.h"
#include "ui_test_support.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace qv {
namespace {

namespace fs = std::filesystem;

std::string bytes_of(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

QStringList column_of(const QTreeWidget* list, int column)
{
    QStringList texts;
    for (int row = 0; row < list->topLevelItemCount(); ++row)
        texts << list->topLevelItem(row)->text(column);
    return texts;
}

void press_enter(QWidget* widget)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
}

// Where Tab goes from a widget: the next widget of the chain that takes focus by Tab.
QWidget* next_tab_stop(QWidget* from)
{
    for (auto* next = from->nextInFocusChain(); next && next != from; next = next->nextInFocusChain())
        if ((next->focusPolicy() & Qt::TabFocus) && next->isVisible() && next->isEnabled())
            return next;
    return nullptr;
}

class PaymentsAreaTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    test::ScriptedTalk talk;
    MainWindow window { dir.path(), &talk };
    PaymentsArea* area = nullptr;

    void SetUp() override
    {
        const auto file = dir.new_tournament();
        {
            Database db(file);
            test::fill_payments_tournament(db);
        }
        window.resize(1100, 700);
        window.show();
        window.session().boot_start_app(file.string());
        ASSERT_TRUE(window.session().has_tournament());
        window.session().toolbar_click(Area::payments);
        area = qobject_cast<PaymentsArea*>(window.current_page());
        ASSERT_TRUE(area);
        talk.clear();
    }

    QPushButton* button(const char* name) { return area->findChild<QPushButton*>(QString::fromLatin1(name)); }

    void compile_in_draw()
    {
        auto* compile = area->open_compile();
        ASSERT_TRUE(compile);
        compile->criterion(1)->setChecked(true);
        compile->compile_button()->click();
        ASSERT_TRUE(test::run_main_loop_until([&] { return area->list()->topLevelItemCount() > 0; }));
    }

    void pay(std::int64_t pid, const char* amount)
    {
        ASSERT_TRUE(area->select_pid(pid));
        area->amount_box()->setText(QString::fromLatin1(amount));
        press_enter(area->amount_box());
    }
};

TEST_F(PaymentsAreaTest, CompileTwoPaymentsAndTheDetailedFile)
{
    EXPECT_EQ(area->list()->topLevelItemCount(), 0);
    compile_in_draw();
    EXPECT_EQ(window.session().settings().text("payments.opt"), "1");
    EXPECT_EQ(column_of(area->list(), 4), (QStringList { "al west", "bo dee", "cy fox", "zoé ray" }));
    EXPECT_EQ(area->currency_text(), "currency=EUR");

    pay(1, "40");
    EXPECT_TRUE(area->amount_box()->text().isEmpty());
    pay(2, "12.5");
    ASSERT_TRUE(area->select_pid(6));
    button("pif")->click();
    EXPECT_TRUE(talk.messages().empty()) << talk.last_message();
    EXPECT_EQ(column_of(area->list(), 3), (QStringList { "op", "ob", "ob", "pif" }));
    EXPECT_EQ(column_of(area->list(), 2), (QStringList { "-5", "7.5", "15", "0" }));
    EXPECT_EQ(area->totals_text(), "total bill=90    total paid by players=72.5    total players must pay=17.5");
    EXPECT_EQ(area->count_text(), "count=4");

    ASSERT_TRUE(area->select_pid(1));
    EXPECT_TRUE(area->details()->toPlainText().contains("amount player has overpaid=5"));

    const auto file = dir.path() / "detailed.txt";
    talk.files.push_back({ file });
    button("make payments file")->click();
    EXPECT_EQ(bytes_of(file), bytes_of(fs::path(QV_TEST_DATA_DIR) / "expected" / "payments" / "payments_detailed.txt"));

    const fs::path shots(QV_SCREENSHOT_DIR);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.grab().save(QString::fromStdString((shots / "payments_area.png").string())));
}

TEST_F(PaymentsAreaTest, TicksFilterAndHoldRefreshRewritesOnlyTheLine)
{
    compile_in_draw();
    // Only the outstanding balances.
    area->state_tick(0)->setChecked(false);
    area->state_tick(2)->setChecked(false);
    EXPECT_EQ(window.session().settings().integer("payments.pif"), 0);
    EXPECT_EQ(column_of(area->list(), 4), (QStringList { "al west", "bo dee", "cy fox", "zoé ray" }));

    // Without hold the list is read again and a person paid in full leaves it.
    pay(2, "20");
    EXPECT_EQ(column_of(area->list(), 4), (QStringList { "al west", "cy fox", "zoé ray" }));

    // On hold the line stays, rewritten with its new state, and the totals follow.
    area->hold_refresh()->setChecked(true);
    EXPECT_EQ(window.session().settings().text("payments_hfr"), "1");
    pay(3, "15");
    EXPECT_EQ(column_of(area->list(), 3), (QStringList { "ob", "pif", "ob" }));
    EXPECT_EQ(area->totals_text(), "total bill=70    total paid by players=15    total players must pay=55");
    button("load")->click();
    EXPECT_EQ(column_of(area->list(), 4), (QStringList { "al west", "zoé ray" }));
}

TEST_F(PaymentsAreaTest, RefusalsAndTheCompileWindow)
{
    compile_in_draw();
    area->list()->clearSelection();
    area->amount_box()->setText(QStringLiteral("10"));
    press_enter(area->amount_box());
    EXPECT_EQ(talk.last_message(), "select player account");
    ASSERT_TRUE(area->select_pid(1));
    area->amount_box()->setText(QStringLiteral("1,5"));
    button("save")->click();
    EXPECT_EQ(talk.last_message(), "invalid character for double");
    EXPECT_EQ(area->amount_box()->text(), "1,5");

    // Tab goes from the list to the amount and on to "save".
    EXPECT_EQ(next_tab_stop(area->list()), area->amount_box());
    EXPECT_EQ(next_tab_stop(area->amount_box()), button("save"));

    auto* compile = area->open_compile();
    EXPECT_EQ(compile->windowTitle(), "compile payments");
    EXPECT_TRUE(compile->compile_button()->isDefault());
    compile->criterion(2)->setChecked(true);
    EXPECT_EQ(window.session().settings().text("payments.opt"), "2");
    const fs::path shots(QV_SCREENSHOT_DIR);
    EXPECT_TRUE(compile->grab().save(QString::fromStdString((shots / "payments_compile.png").string())));
    compile->compile_button()->click();
    EXPECT_EQ(column_of(area->list(), 4), (QStringList { "al west", "bo dee", "cy fox", "di lane", "zoé ray" }));

    button("copy")->click();
    EXPECT_TRUE(
        QApplication::clipboard()->text().startsWith("bill\tpaid\tmustpay\tstate\tplayer\n35\t0\t35\tob\tal west"));
}

} // namespace
} // namespace qv
