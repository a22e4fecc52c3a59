#include "EscPos.h"
#include "MemberPrinting.h"
#include "OrderPrinting.h"
#include "PrintUi.h"
#include "Printing.h"
#include "ReceiptLayout.h"
#include "RoomBoard.h"
#include "Slips.h"
#include "TestKit.h"
#include "frmMain.h"
#include "frmOpenHouse.h"
#include "frmOption.h"
#include "frmPrintQueue.h"
#include "frmSeePrintType.h"
#include <QRawFont>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>

namespace {
const QString Standard = u"00000000000000001"_s;

// A network receipt printer on this machine: it takes what is sent and keeps it.
class Sink {
  public:
    Sink() { m_server.listen(QHostAddress::LocalHost, 0); }
    QString target() const { return u"tcp://127.0.0.1:"_s + QString::number(m_server.serverPort()); }
    // What each connection since the last call brought.
    QList<QByteArray> take() {
        QList<QByteArray> out;
        while (m_server.hasPendingConnections() || m_server.waitForNewConnection(100)) {
            std::unique_ptr<QTcpSocket> s(m_server.nextPendingConnection());
            QByteArray data;
            for (;;) {
                data += s->readAll();
                if (s->state() != QAbstractSocket::ConnectedState || !s->waitForReadyRead(2000)) break;
            }
            out << data + s->readAll();
        }
        return out;
    }
    int slips() {
        int n = 0;
        for (const QByteArray& d : take())
            n += int(d.count(EscPos::Cut()));
        return n;
    }

  private:
    QTcpServer m_server;
};

void setup(const char* key, const QString& value) {
    QVERIFY(SetSetup(QLatin1String(key), value));
}

void bill(const QString& id, const QString& room, const QString& open, int state = 1,
          const QString& close = {}, double theMoney = 0, double ought = 0, double no = 0, double fact = 0) {
    DB().exec(u"insert into Expense (ExpenseID, TheID, PayLevelID, payLevelType, IsUseMinMoney, OpenTime, "
              "CloseTime, State, VoucherState, openOperator, CloseOperator, StartMoney, theMoney, "
              "oughtMoney, ExpenseMoney, NoMoney, factpay) values (?, ?, ?, 1, 0, ?, ?, ?, 0, "
              "'小李', '小王', ?, ?, ?, ?, ?, ?)"_s,
              {id, room, room == u"r1"_s ? Standard : u"free"_s, open,
               close.isEmpty() ? Param(nullptr) : Param(close), state, Money::yuan(50),
               Money::fromDouble(theMoney), Money::fromDouble(ought), Money::fromDouble(ought),
               Money::fromDouble(no), Money::fromDouble(fact)});
    if (state == 1) DB().exec(u"update The set State=1, ExpenseID=? where TheID=?"_s, {id, room});
}

void line(const QString& id, const QString& bill, const QString& ware, double num, double price,
          int isdel = 0, const QString& thisCode = {}, const QString& note = {}) {
    const Money p = Money::fromDouble(price);
    DB().exec(u"insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, ExpenseMoney, "
              "oughtMoney, isdel, operatorname, ExpenseTime, ThisCode, Description) values "
              "(?, ?, ?, ?, ?, ?, ?, ?, '小李', ?, ?, ?)"_s,
              {id, bill, ware, num, p, p.times(num), p.times(num), isdel, u"2026-11-21 19:"_s + id.right(2),
               thisCode, note});
}

// The bill of room B02: beer ordered twice, a void, a long name.
void settledBill(const QString& room = u"r1"_s) {
    bill(u"e1"_s, room, u"2026-11-21 17:30"_s, 0, u"2026-11-21 19:45"_s, room == u"r1"_s ? 180 : 0, 446, 6,
         440);
    line(u"d01"_s, u"e1"_s, u"w1"_s, 2, 15);
    line(u"d02"_s, u"e1"_s, u"w2"_s, 1, 28, 1);
    line(u"d03"_s, u"e1"_s, u"w1"_s, 4, 15);
    line(u"d04"_s, u"e1"_s, u"w3"_s, 1, 58);
    line(u"d05"_s, u"e1"_s, u"w4"_s, 1, 128);
}

// One round of ordering into the open bill of B02.
void orderRound() {
    bill(u"e2"_s, u"r1"_s, u"2026-11-21 18:00"_s);
    line(u"t11"_s, u"e2"_s, u"w1"_s, 6, 15, 0, u"t11"_s);
    line(u"t12"_s, u"e2"_s, u"w2"_s, 2, 28, 0, u"t11"_s, u"少盐"_s);
    line(u"t13"_s, u"e2"_s, u"w3"_s, 1, 58, 0, u"t11"_s);
    line(u"t14"_s, u"e2"_s, u"w4"_s, 1, 128, 1, u"t11"_s);
    line(u"t15"_s, u"e2"_s, u"w4"_s, -1, 128, 0, u"t11"_s, u"退一份"_s);
    line(u"t16"_s, u"e2"_s, u"gone"_s, 1, 10, 0, u"t11"_s);
}

// Member 8003 tops up 1,200 yuan for `paid`.
void topUp(const Money& paid) {
    DB().exec(u"insert into Member (MemberCode, MemberName, chongzhi) values ('8003', '李娜', ?)"_s,
              {Money::fromDouble(12345.6)});
    DB().exec(u"insert into chongzhi (chongzhiid, MemberCode, operatorname, thismemoney, factpay, "
              "OperatorTime) values ('c1', '8003', '小王', ?, ?, '2026-11-21 19:30')"_s,
              {Money::yuan(1200), paid});
}

QString goldenPath(const QString& name) {
    return QStringLiteral(QT_TESTCASE_SOURCEDIR "/printing/golden/") + name + u".txt"_s;
}

// The text map of a PDF names each glyph by the first character drawn with it, and the CJK
// fonts draw a radical and its character alike: 小 reads back as ⼩. A reader sees 小.
QString withoutRadicals(QString text) {
    static const QHash<QChar, QChar> map = [] {
        QHash<QChar, QChar> m;
        const QRawFont font = QRawFont::fromFont(QFont(u"Noto Sans Mono CJK SC"_s));
        QString ideographs;
        for (char16_t c = 0x4E00; c <= 0x9FFF; ++c)
            ideographs += QChar(c);
        const QList<quint32> glyphs = font.glyphIndexesForString(ideographs);
        QHash<quint32, QChar> byGlyph;
        for (qsizetype i = glyphs.size() - 1; i >= 0; --i)
            if (glyphs[i]) byGlyph[glyphs[i]] = ideographs[i];
        for (char16_t c = 0x2E80; c <= 0x2FDF; ++c) {
            const quint32 g = font.glyphIndexesForString(QString(QChar(c))).value(0);
            if (g && byGlyph.contains(g)) m[QChar(c)] = byGlyph[g];
        }
        return m;
    }();
    for (QChar& c : text)
        c = map.value(c, c);
    return text;
}

// The text of a PDF as a PDF reader gives it; empty when the tool is not installed.
QString readPdf(const QString& file) {
    const QString tool = QStandardPaths::findExecutable(u"pdftotext"_s);
    if (tool.isEmpty()) return {};
    QProcess p;
    p.start(tool, {u"-layout"_s, u"-enc"_s, u"UTF-8"_s, file, u"-"_s});
    if (!p.waitForFinished(20000)) return {};
    return withoutRadicals(QString::fromUtf8(p.readAllStandardOutput()));
}

// The first of `parts` that `text` does not hold after the ones before it, with the text.
QString missingInOrder(const QString& text, const QStringList& parts) {
    qsizetype at = 0;
    for (const QString& part : parts) {
        const qsizetype found = text.indexOf(part, at);
        if (found < 0) return part + u" not in order in\n"_s + text;
        at = found + part.size();
    }
    return {};
}

qint64 jobCount(const QString& condition = u"1=1"_s) {
    return count(u"select count(*) from PrintJob where "_s + condition);
}
} // namespace

class TestPrinting : public QObject {
    Q_OBJECT
    QTemporaryDir m_config;
    std::unique_ptr<TestVenue> m_venue;

  private Q_SLOTS:
    void initTestCase() {
        qputenv("XDG_CONFIG_HOME", m_config.path().toUtf8());
        InstallPrinting();
    }
    // Each test starts on a fresh venue: two rooms on the standard tariff and one on a tariff that
    // charges nothing, goods for the kitchen, the bar and both, and the company.
    void init() {
        m_venue = std::make_unique<TestVenue>();
        OPEN_VENUE(*m_venue);
        DB().exec(u"insert into PayLevel (PayLevelID, PayLevelName, payType, AfterTime, Unit, NotOne, "
                  "PrivilegeTime, start1, "
                  "end1, Price1, MinMoney1) values ('free', '大厅免费', 1, 0, 30, 0, 0, 0, 24, 0, 0)"_s);
        DB().exec(u"insert into TheAssort (AssortID, AssortName, PayLevelID) values ('a', '中包', ?), "
                  "('f', '大厅', 'free')"_s,
                  {Standard});
        DB().exec(u"insert into The (TheID, TheCode, AssortID, State) values ('r1', 'B02', 'a', 0), "
                  "('r3', 'B03', 'a', 0), ('r2', 'K01', 'f', 0)"_s);
        DB().exec(u"insert into WareType (WareTypeID, wareTypeName, isHC, isBT) values "
                  "('01', '啤酒', 0, 1), ('04', '小吃', 1, 0), ('05', '果盘', 1, 1)"_s);
        DB().exec(u"insert into Ware (WareID, WareTypeID, WareCode, WareName, Price) values "
                  "('w1', '01', '1001', '青岛啤酒', 150000), ('w2', '04', '4001', '薯条', 280000), "
                  "('w3', '05', '5001', '小果盘', 580000), ('w4', '04', '4002', "
                  "'招牌香辣小龙虾拼盘（大份，加麻加辣）', 1280000)"_s);
        AppState& a = App();
        a.CompanyName = u"星澜KTV（滨江店）"_s;
        a.CompanyAddress = u"滨江路88号"_s;
        a.CompanyPhone = u"0571-88886666"_s;
    }
    void cleanup() { m_venue.reset(); }
    void layout_data() { // clang-format off
        columns<int, Receipt, QString>("paper", "receipt", "text");
        QTest::newRow("long value goes on beside its caption") << 58
            << Receipt().field(u"地址"_s, {}, u"浙江省杭州市滨江区江南大道1088号星光大道二期"_s)
            << u"地址：浙江省杭州市滨江区江南大道\n" "      1088号星光大道二期\n"_s;
        QTest::newRow("total too wide goes under") << 58
            << Receipt().total(u"消费合计（含包厢费及服务费）"_s, {}, u"123456.00"_s)
            << u"消费合计（含包厢费及服务费）：\n                       123456.00\n"_s;
        QTest::newRow("empty label takes no line") << 80 << Receipt().label(u"lblYM"_s, {}).rule() << QString(QString(48, u'-') + u'\n'); // clang-format on
    }
    void layout() {
        auto [paper, receipt, text] = fetch<int, Receipt, QString>("paper", "receipt", "text");
        QCOMPARE(ReceiptText(receipt, paper == 58 ? Paper::mm58 : Paper::mm80), text);
    }
    // Each design from the stored data, against its expected text. The bill query's two summaries
    // are compared with their files by the report test, printed from the window.
    void designs_data() {
        columns<QString, int>("fixture", "paper");
        for (const char* f : {"DREndExpense", "DREndExpenseNoHouse", "DROutSale", "DRExpenseThis"})
            QTest::newRow(f) << f << 80;
        for (const char* f : {"DREndExpense_c", "DREndExpenseNoHouse_c", "running", "DRStartExpense",
                              "DRChongzhi", "DRExpenseThisHC", "bar"})
            QTest::newRow(f) << f << 58;
    }
    void designs() {
        auto [fixture, paper] = fetch<QString, int>("fixture", "paper");
        setup("IsHC", u"1"_s);
        setup("IsBT", u"1"_s);
        setup("PrinterHC", u"PDF:"_s);
        setup("PrinterBT", u"PDF:"_s);
        SetIni(u"BTNum"_s, u"1"_s);
        std::optional<Receipt> r;
        if (fixture.startsWith(u"DREndExpense"_s)) {
            settledBill(fixture.contains(u"NoHouse"_s) ? u"r2"_s : u"r1"_s);
            setup("IndustryCategory", fixture.endsWith(u"_c"_s) ? u"1"_s : u"0"_s);
            r = BillSlip(u"e1"_s, true);
            QCOMPARE(r->design(), fixture);
        } else if (fixture == u"running"_s) {
            orderRound();
            r = BillSlip(u"e2"_s, false);
            QCOMPARE(r->design(), u"DREndExpense"_s);
        } else if (fixture == u"DRStartExpense"_s) {
            bill(u"20261121-00007"_s, u"r1"_s, u"2026-11-21 19:58"_s);
            r = StartTicketSlip(u"20261121-00007"_s);
        } else if (fixture == u"DROutSale"_s) {
            DB().exec(u"insert into Outsale (ExpenseID, OpenTime, CloseTime, CloseOperator, oughtMoney, "
                      "factpay) values ('20261121-00003', '2026-11-21 19:40', '2026-11-21 19:41', '小王', "
                      "1460000, 1460000)"_s);
            DB().exec(u"insert into OutsaleDetail (DetailID, ExpenseID, WareID, num, Price, oughtMoney, "
                      "ExpenseMoney, isdel) values ('o1', '20261121-00003', 'w1', 2, 140000, 280000, 280000, "
                      "0), ('o2', '20261121-00003', 'w1', 1, 140000, 140000, 140000, 0), ('o3', "
                      "'20261121-00003', 'w4', 1, 1280000, 1040000, 1040000, 0), ('o4', '20261121-00003', "
                      "'w2', 1, 280000, 280000, 280000, 1)"_s);
            r = OutSaleSlip(u"20261121-00003"_s);
        } else if (fixture == u"DRChongzhi"_s) {
            topUp(Money::fromDouble(999.5));
            r = ChongzhiSlip(u"c1"_s);
        } else if (fixture == u"DRExpenseThis"_s || fixture == u"DRExpenseThisHC"_s || fixture == u"bar"_s) {
            orderRound();
            const ThisSlips s = ThisTicketSlips(u"t11"_s, true, u"B02"_s, u"186.00"_s);
            r = fixture == u"DRExpenseThis"_s ? s.slip : fixture == u"bar"_s ? s.bar : s.kitchen;
        }
        QVERIFY(r.has_value());
        const Paper p = paper == 58 ? Paper::mm58 : Paper::mm80;
        const QString actual = ReceiptText(*r, p);
        // What the queue keeps prints the same.
        QCOMPARE(ReceiptText(Receipt::fromJson(r->toJson()), p), actual);
        QFile expected(goldenPath(fixture));
        if (qEnvironmentVariableIsSet("SINGBOX_UPDATE_GOLDEN") && QDir().mkpath(QFileInfo(expected).path()) &&
            expected.open(QIODevice::WriteOnly)) {
            expected.write(actual.toUtf8());
            return;
        }
        QVERIFY2(expected.open(QIODevice::ReadOnly), qPrintable(u"missing "_s + expected.fileName()));
        QCOMPARE(actual, QString::fromUtf8(expected.readAll()));
    }
    void billChoice_data() { // clang-format off
        columns<QString, double, QString, bool, QString, QString, int>("room", "theMoney", "category", "allVoid", "design", "payLevel", "lines");
        QTest::newRow("settled charge 0 keeps the caption") << "r1" << 0.0 << "0" << false << "DREndExpense" << "0.00" << 3;
        QTest::newRow("brief is any other value") << "r1" << 180.0 << "-1" << false << "DREndExpense_c" << "180.00" << 3;
        QTest::newRow("no category is detailed") << "r2" << 0.0 << "" << false << "DREndExpenseNoHouse" << "" << 3;
        QTest::newRow("all lines voided") << "r1" << 180.0 << "1" << true << "DREndExpense_c" << "180.00" << 0; // clang-format on
    }
    void billChoice() {
        auto [room, theMoney, category, allVoid, design, payLevel, lines] =
            fetch<QString, double, QString, bool, QString, QString, int>(
                "room", "theMoney", "category", "allVoid", "design", "payLevel", "lines");
        settledBill(room);
        DB().exec(u"update Expense set theMoney=?"_s, {Money::fromDouble(theMoney)});
        if (allVoid) DB().exec(u"update ExpenseDetail set isdel=1"_s);
        setup("IndustryCategory", category);
        const std::optional<Receipt> r = BillSlip(u"e1"_s, true);
        QVERIFY(r.has_value());
        QCOMPARE(r->design(), design);
        QCOMPARE(r->value(u"lblPayLevel"_s), payLevel);
        const auto table = std::find_if(r->blocks().begin(), r->blocks().end(), [](const ReceiptBlock& b) {
            return b.kind == ReceiptBlock::Kind::Table;
        });
        QVERIFY(table != r->blocks().end());
        QCOMPARE(int(table->rows.size()), lines);
    }
    // A kitchen ticket from the order window's hook with its printer down: the cashier is told,
    // and from the queue it goes to the bar's printer as ESC/POS in GBK, a cut after each copy.
    void kitchenTicketToAnotherPrinter() {
        orderRound();
        setup("IsHC", u"1"_s);
        setup("PrinterHC", u"tcp://127.0.0.1:1"_s);
        setup("PrinterHCPaper", u"58"_s);
        setup("HCNum", u"2"_s);
        Msg::setNextAnswer(QMessageBox::No);
        OrderPrinting::instance().PrintThis({u"e2"_s, u"t11"_s, u"B02"_s, u"186.00"_s}, false);
        QVERIFY(WaitForPrinting());
        const QList<Msg::Shown> shown = Msg::taken();
        QCOMPARE(shown.size(), 1);
        QVERIFY(shown.first().text.contains(u"“后厨单 B02”没有打印出来"_s));
        QVERIFY(shown.first().text.contains(u"打印机：tcp://127.0.0.1:1"_s));
        QCOMPARE(shown.first().icon, Msg::Icon::Exclamation);
        QCOMPARE(jobCount(u"Role='PrinterHC' and State=2 and Error<>'' and Paper=58"_s), 1);

        Sink bar;
        frmPrintQueue queue;
        QVERIFY(queue.selectJob(text(u"select JobID from PrintJob"_s)));
        child<QComboBox>(&queue, "cmbPrinter")->setEditText(bar.target());
        child<QPushButton>(&queue, "cmdPrintTo")->click();
        QCOMPARE(messages(), QStringList());
        const QByteArray bytes = bar.take().join();
        QVERIFY(bytes.startsWith(QByteArray("\x1b@", 2)));
        QCOMPARE(EscPos::Gbk(u"后厨单"_s), QByteArray("\xba\xf3\xb3\xf8\xb5\xa5"));
        for (const char* text : {"后厨单", "B02", "薯条", "少盐", "小果盘", "退一份"})
            QVERIFY2(bytes.contains(EscPos::Gbk(QString::fromUtf8(text))), text);
        QVERIFY(!bytes.contains(EscPos::Gbk(u"青岛啤酒"_s))); // bar goods stay off
        QCOMPARE(bytes.count(EscPos::Cut()), 2);
        QVERIFY(bytes.endsWith(EscPos::Cut()));
        QCOMPARE(text(u"select Printer from PrintJob where State=1"_s), bar.target());
        // The printed ticket leaves the list of those still to print.
        QCOMPARE(child<QTreeWidget>(&queue, "lvwJobs")->topLevelItemCount(), 0);
    }
    void copies_data() { // clang-format off
        columns<QString, QString, QString>("print", "endBillNum", "hcNum");
        QTest::addColumn<QString>("btNum"); // config.ini; "-" leaves it out
        QTest::addColumn<int>("slips");
        QTest::newRow("checkout prints EndBillNum") << "checkout" << "3" << "1" << "-" << 3;
        QTest::newRow("EndBillNum 0 acts as 1") << "checkout" << "0" << "1" << "-" << 1;
        QTest::newRow("running bill once") << "mnuPrintExpense" << "3" << "1" << "-" << 1;
        QTest::newRow("kitchen HCNum 0 prints none") << "kitchen" << "1" << "0" << "-" << 0;
        QTest::newRow("no BTNum no bar ticket") << "bar" << "1" << "1" << "-" << 0;
        QTest::newRow("BTNum of this workstation") << "bar" << "1" << "1" << "2" << 2; // clang-format on
    }
    void copies() {
        auto [print, endBillNum, hcNum, btNum, slips] =
            fetch<QString, QString, QString, QString, int>("print", "endBillNum", "hcNum", "btNum", "slips");
        Sink printer;
        for (const char* key : {"Printer", "PrinterHC", "PrinterBT"})
            setup(key, printer.target());
        setup("EndBillNum", endBillNum);
        setup("HCNum", hcNum);
        setup("btNum", u"5"_s); // the options window's box; the tickets do not read it
        if (btNum != u"-"_s) SetIni(u"BTNum"_s, btNum);
        setup("IsHC", print == u"kitchen"_s ? u"1"_s : u"0"_s);
        setup("IsBT", print == u"bar"_s ? u"1"_s : u"0"_s);
        if (print == u"checkout"_s) {
            settledBill();
            QVERIFY(PrintBill(u"e1"_s, true).ok());
        } else if (print == u"mnuPrintExpense"_s) {
            orderRound();
            frmMain w;
            w.Init();
            QVERIFY(w.board()->selectRoom(u"r1"_s));
            w.runCommand(u"mnuPrintExpense"_s);
            QVERIFY(WaitForPrinting());
            QCOMPARE(text(u"select Other2 from Expense where ExpenseID='e2'"_s), u"1"_s);
        } else {
            orderRound();
            QVERIFY(PrintThis(u"e2"_s, u"t11"_s, false, u"B02"_s, u"186.00"_s).ok());
        }
        QCOMPARE(printer.slips(), slips);
        QCOMPARE(jobCount(u"State<>1"_s), 0);
        QCOMPARE(messages(), QStringList());
    }
    void reprintLastBill() {
        settledBill();
        setup("Printer", u"tcp://127.0.0.1:1"_s);
        setup("EndBillNum", u"2"_s);
        QVERIFY(PrintBill(u"e1"_s, true).message().contains(u"“结帐单 e1”没有打印出来"_s));

        Sink printer;
        setup("Printer", printer.target());
        frmMain w;
        w.Init();
        QVERIFY(w.board()->selectRoom(u"r1"_s));
        w.runCommand(u"mnuReprintExpense"_s);
        const QList<QByteArray> got = printer.take();
        QCOMPARE(got.size(), 1);
        QCOMPARE(got.first().count(EscPos::Cut()), 1); // a reprint is one copy
        QVERIFY(got.first().contains(EscPos::Gbk(u"440.00"_s)));

        // A room that never had a bill.
        QVERIFY(w.board()->selectRoom(u"r3"_s));
        w.runCommand(u"mnuReprintExpense"_s);
        QCOMPARE(messages(), QStringList{u"这个包厢还没有可以重打的帐单！"_s});
        QCOMPARE(printer.slips(), 0);
    }
    void reprintLastTickets() {
        orderRound();
        Sink printer;
        for (const char* key : {"Printer", "PrinterHC"})
            setup(key, printer.target());
        setup("IsHC", u"1"_s);
        QVERIFY(PrintThis(u"e2"_s, u"t11"_s, true, u"B02"_s, u"1"_s).ok());
        line(u"t21"_s, u"e2"_s, u"w2"_s, 3, 28, 0, u"t21"_s);
        QVERIFY(PrintThis(u"e2"_s, u"t21"_s, false, u"B02"_s, u"1"_s).ok());
        QCOMPARE(printer.slips(), 3);

        // Only the last round, its one kitchen ticket, comes again.
        const PrintOutcome again = ReprintLastTickets(u"e2"_s);
        QCOMPARE(again.jobs.size(), 1);
        const QList<QByteArray> got = printer.take();
        QCOMPARE(got.size(), 1);
        QVERIFY(got.first().contains(EscPos::Gbk(u"后厨单"_s)) &&
                got.first().contains(EscPos::Gbk(u"薯条"_s)));
        QVERIFY(!got.first().contains(EscPos::Gbk(u"小果盘"_s)));
        QCOMPARE(ReprintLastTickets(u"e1"_s).jobs.size(), 0);
    }
    void openingSlip_data() { // clang-format off
        QTest::addColumn<bool>("reachable");
        QTest::newRow("printed") << true;
        QTest::newRow("printer down, room open all the same") << false; // clang-format on
    }
    void openingSlip() {
        QFETCH(bool, reachable);
        Sink printer;
        setup("Printer", reachable ? printer.target() : u"tcp://127.0.0.1:1"_s);
        App().IsPrintStartBill = 1;
        frmOpenHouse dlg;
        QVERIFY(dlg.prepare(u"r1"_s));
        child<QLineEdit>(&dlg, "txtNum")->setText(u"4"_s);
        child<QLineEdit>(&dlg, "txtStartMoney")->setText(u"50"_s);
        dlg.OKButton_Click();
        const QString bill = dlg.result();
        QVERIFY(!bill.isEmpty());
        QCOMPARE(count(u"select State from The where TheID='r1'"_s), 1);
        const QList<QByteArray> got = printer.take();
        if (reachable) {
            QCOMPARE(got.size(), 1);
            QVERIFY(got.first().contains(EscPos::Gbk(u"接 待 单 据"_s)));
            QVERIFY(got.first().contains(EscPos::Gbk(bill)));
            QCOMPARE(messages(), QStringList());
        } else {
            QVERIFY(got.isEmpty());
            const QStringList shown = messages();
            QCOMPARE(shown.size(), 1);
            QVERIFY(shown.first().contains(u"接待单据 "_s + bill));
        }
    }
    // The slips as PDF files, read back by a PDF text tool.
    void pdfText_data() { // clang-format off
        columns<QString, QString, QStringList>("print", "design", "texts");
        QTest::newRow("final bill") << "bill" << "DREndExpense"
            << QStringList{u"星澜KTV（滨江店）"_s, u"地址：滨江路88号"_s, u"e1"_s, u"中包-B02"_s, u"11-21 17:30"_s, u"2小时15分钟"_s, u"青岛啤酒"_s, u"90.00"_s, u"包厢费"_s, u"180.00"_s, u"446.00"_s, u"实收"_s, u"440.00"_s, u"小王"_s};
        QTest::newRow("top-up receipt") << "chongzhi" << "DRChongzhi"
            << QStringList{u"8003"_s,  u"李娜"_s,  u"2026-11-21"_s, u"1,200"_s, u"1,000"_s, u"12,346"_s}; // clang-format on
    }
    void pdfText() {
        auto [print, design, texts] = fetch<QString, QString, QStringList>("print", "design", "texts");
        if (QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty())
            QSKIP("pdftotext (poppler-utils) is not installed");
        setup("Printer", u"PDF:"_s);
        if (print == u"bill"_s) {
            settledBill();
            PrintBill(u"e1"_s, true);
        } else {
            topUp(Money::yuan(1000));
            // As the top-up window asks for it after its commit.
            ChongzhiReceipt receipt;
            receipt.chongzhiID = u"c1"_s;
            MemberPrinting::PrintChongzhi(receipt);
        }
        QCOMPARE(messages(), QStringList());
        QCOMPARE(jobCount(u"State=1"_s), 1);
        const QString file =
            QDir(App().AppPath)
                .filePath(u"Print/"_s + design + u'-' + text(u"select JobID from PrintJob"_s) + u".pdf"_s);
        QVERIFY2(QFile::exists(file), qPrintable(file));
        QCOMPARE(missingInOrder(readPdf(file), texts), QString());
    }
    void optionsPage_data() { // clang-format off
        columns<bool, QString, bool, QString, QString, QString>("hc", "hcPrinter", "bt", "btPrinter", "message", "focus");
        QTest::addColumn<QString>("endBillNum"); // stored after the save
        columns<QString, QString>("hcNum", "btNum");
        QTest::newRow("kitchen on mends the copies") << true << "tcp://10.0.0.8:9100" << false << "" << "" << "" << "1" << "1" << "-2";
        QTest::newRow("kitchen off keeps a zero") << false << "" << true << "PDF:" << "" << "" << "0" << "2" << "1";
        QTest::newRow("kitchen without printer") << true << "" << false << "" << "请选择后厨打印机！" << "cmbHC" << "1" << "2" << "1";
        QTest::newRow("bar without printer") << false << "" << true << "" << "请选择吧台打印机！" << "cmbBT" << "1" << "2" << "1"; // clang-format on
    }
    void optionsPage() {
        auto [hc, hcPrinter, bt, btPrinter, message, focus, endBillNum, hcNum, btNum] =
            fetch<bool, QString, bool, QString, QString, QString, QString, QString, QString>(
                "hc", "hcPrinter", "bt", "btPrinter", "message", "focus", "endBillNum", "hcNum", "btNum");
        setup("EndBillNum", u"1"_s);
        setup("HCNum", u"2"_s);
        setup("btNum", u"1"_s);
        setup("PrinterHC", u"tcp://10.0.0.9:9100"_s);
        frmOption w;
        w.show();
        // A saved network printer is offered though the system does not know it.
        QCOMPARE(child<QComboBox>(&w, "cmbHC")->currentText(), u"tcp://10.0.0.9:9100"_s);
        QCOMPARE(child<QComboBox>(&w, "cmbPrinter")->currentText(), u"系统默认打印机"_s);
        // The kitchen and bar lists hold only printers that can be named, so "no printer" is caught.
        QCOMPARE(child<QComboBox>(&w, "cmbHC")->findData(QString()) +
                     child<QComboBox>(&w, "cmbBT")->findData(QString()),
                 -2);

        child<QLineEdit>(&w, "txtCompanyName")->setText(u"星澜KTV（O'Neil 店）"_s);
        child<QLineEdit>(&w, "txtEndBillNum")->setText(u"0"_s);
        child<QCheckBox>(&w, "chkPrintStartBill")->setChecked(true);
        child<QCheckBox>(&w, "chkUseWarehouse")->setChecked(true);
        child<QCheckBox>(&w, "chkhc")->setChecked(hc);
        QVERIFY(child<QComboBox>(&w, "cmbHC")->isEnabled() == hc);
        if (hc) {
            child<QComboBox>(&w, "cmbHC")->setEditText(hcPrinter);
            child<QLineEdit>(&w, "txthcNum")->setText(u"0"_s);
        }
        child<QCheckBox>(&w, "chkbt")->setChecked(bt);
        child<QComboBox>(&w, "cmbBT")->setEditText(btPrinter);
        child<QLineEdit>(&w, "txtbtNum")->setText(u"-2"_s);
        child<QComboBox>(&w, "cmbTopWeb")->setCurrentIndex(2);
        child<QComboBox>(&w, "cmbHCPaper")->setCurrentIndex(1);
        child<QPushButton>(&w, "cmdSave")->click();

        if (!message.isEmpty()) {
            QCOMPARE(messages(), QStringList{message});
            QVERIFY(w.isVisible());
            // An editable list takes the focus in its line.
            const QWidget* f = w.focusWidget();
            QVERIFY(f);
            QCOMPARE(qobject_cast<const QComboBox*>(f) ? f->objectName() : f->parentWidget()->objectName(),
                     focus);
            QCOMPARE(GetSetup(u"EndBillNum"_s) + u'|' + GetSetup(u"PrintStartBill"_s), u"1|0"_s);
            QCOMPARE(count(u"select count(*) from s_log"_s), 0);
            return;
        }
        QCOMPARE(messages(), QStringList());
        QVERIFY(!w.isVisible());
        QStringList stored;
        for (const char* key : {"EndBillNum", "HCNum", "btNum", "IsHC", "PrinterHC", "PrinterHCPaper",
                                "PrinterBT", "PrintStartBill"})
            stored << GetSetup(QLatin1String(key));
        // An unticked kitchen keeps its printer and copies for the day it is ticked again.
        QCOMPARE(stored,
                 (QStringList{endBillNum, hcNum, btNum, hc ? u"1"_s : u"0"_s,
                              hc ? hcPrinter : u"tcp://10.0.0.9:9100"_s, u"58"_s, btPrinter, u"1"_s}));
        QCOMPARE(App().IsPrintStartBill, 1);
        QCOMPARE(App().IsUseWareHouse, 1);
        QCOMPARE(App().CompanyName, u"星澜KTV（O'Neil 店）"_s);
        QCOMPARE(GetIni(u"ThisTopWeb"_s), u"2"_s);
        QCOMPARE(
            dump(
                u"select theDoName, theContent from s_log where theModel='营业设置' order by theDoName desc"_s),
            u"库存设置| 选择使用库存管理等\n其它设置|"_s);
    }
    // Both bill styles side by side; the brief one, without the opening time and the length of
    // the stay (the golden slips show both styles), is the shorter picture.
    void printStyles() {
        frmSeePrintType w(Paper::mm58);
        QVERIFY(child<QLabel>(&w, "imgBrief")->pixmap().height() <
                child<QLabel>(&w, "imgDetailed")->pixmap().height());
    }
};

QTEST_MAIN(TestPrinting)
#include "test_printing.moc"
