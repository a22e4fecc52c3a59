#pragma once
#include "Db.h"
#include <QDateTime>
#include <QDialog>
#include <memory>

namespace Ui {
class frmWareInList;
}

// The saved receipts, or adjustments, of a period: by document, by line, and summed by
// article. The two record windows differ only in their tables and texts.
struct StockRecordKind {
    QString form;     // frmWareInList, frmWareLossList
    QString head;     // WareIn, WareLoss
    QString lines;    // WareInList, WareLossList
    QString key;      // wareInID, WareLossID
    bool bySupplier;  // receipts have suppliers
};
const StockRecordKind& ReceiptRecords();
const StockRecordKind& LossRecords();

// The three views' queries over [start, end) (a single moment when both are equal).
class StockRecordsService {
  public:
    StockRecordsService(const StockRecordKind& kind, Db& db = DB()) : m_kind(kind), m_db(db) {}
    Rows documents(const QDateTime& start, const QDateTime& end, const QString& supplierID) const;
    Rows lines(const QDateTime& start, const QDateTime& end, const QString& supplierID) const;
    Rows sums(const QDateTime& start, const QDateTime& end, const QString& supplierID) const;
    Rows linesOf(const QString& documentID) const;
    Rows suppliers() const;

  private:
    // A document's lines with their document and article.
    QString linesJoined() const;
    QString where(const QDateTime& start, const QDateTime& end, const QString& supplierColumn,
                  const QString& supplierID, Params& params) const;
    const StockRecordKind& m_kind;
    Db& m_db;
};

class StockRecords : public QDialog {
    Q_OBJECT
  public:
    StockRecords(const StockRecordKind& kind, QWidget* parent);
    ~StockRecords() override;

    // Modal, period 0 today, 1 this week, 2 this month (others: today); searches at once.
    void ShowMe(int period);
    void prepare(int period);
    void optDay_Click(int index);
    void cmdFind_Click();
    void showLinesOf(const QString& documentID);

  private:
    const StockRecordKind& m_kind;
    std::unique_ptr<Ui::frmWareInList> ui;
};

// "进货记录"
class frmWareInList : public StockRecords {
    Q_OBJECT
  public:
    explicit frmWareInList(QWidget* parent = nullptr) : StockRecords(ReceiptRecords(), parent) {}
};

// "报溢/报损记录"
class frmWareLossList : public StockRecords {
    Q_OBJECT
  public:
    explicit frmWareLossList(QWidget* parent = nullptr) : StockRecords(LossRecords(), parent) {}
};
