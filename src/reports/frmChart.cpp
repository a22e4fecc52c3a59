#include "frmChart.h"
#include "BusinessQueries.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "MessageBox.h"
#include "ReportQuery.h"
#include "ScreenFit.h"
#include "Val.h"
#include "ui_frmChart.h"
#include <QCategoryAxis>
#include <QChart>
#include <QLineSeries>
#include <QValueAxis>
#include <algorithm>
#include <cmath>

namespace {
const QString Form = QStringLiteral("frmChart");
} // namespace

frmChart::frmChart(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmChart>()) {
    ui->setupUi(this);
    ScreenFit::install(this, QSize(1100, 700));
    m_query = new ReportQuery(ui->cmdFind, ui->prgFind, this);
    FillStateList(ui->lstState, false);
    m_period = {{ui->optDay0, ui->optDay1, ui->optDay2}, ui->dtpStart, ui->dtpEnd};
    m_period.install(this);
    ui->chaThis->setRenderHint(QPainter::Antialiasing);
    ui->chaThis->setChart(new QChart());
    ui->chaThis->chart()->legend()->setAlignment(Qt::AlignBottom);
    connect(ui->cmdFind, &QPushButton::clicked, this, &frmChart::LoadExpense);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    ExportButton(ui->cmdOutExcel, [this] { return ui->lvwExpense; });
}

frmChart::~frmChart() = default;

void frmChart::ShowMe() {
    exec();
}

void frmChart::LoadExpense() {
    if (m_query->busy()) return;
    ui->lvwExpense->clear();
    const QDateTime start = ui->dtpStart->dateTime(), end = ui->dtpEnd->dateTime();
    const ChartLine line = ui->optType1->isChecked()   ? ChartLine::Week
                           : ui->optType2->isChecked() ? ChartLine::Month
                                                       : ChartLine::Day;
    const VoucherChoice choice = ChoiceOf(ui->lstState);
    auto rows = std::make_shared<Rows>();
    m_query->run([=](Db& db) { *rows = ChartService(db).rows(start, end, line, choice.paid, choice.free); },
                 [this, rows] { showRows(*rows); },
                 [this](const DbError& e) { Msg::critical(this, e.message(QStringLiteral("LoadExpense"), Form)); });
}

void frmChart::showRows(const Rows& rows) {
    try {
        ShowListInQueryOrder(ui->lvwExpense, QStringLiteral("frmChart.lvwExpense"), rows, false);
    } catch (const DbError& e) {
        return Msg::critical(this, e.message(QStringLiteral("LoadExpense"), Form));
    }
    buildChart();
}

// Built from the list, as the table shows the values.
void frmChart::buildChart() {
    QChart* chart = ui->chaThis->chart();
    chart->removeAllSeries();
    for (QAbstractAxis* a : chart->axes())
        chart->removeAxis(a);
    chart->setTitle(QString());
    const QStringList names = {QStringLiteral("消费金额"), QStringLiteral("实收金额"), QStringLiteral("利润")};
    QStringList labels;
    QList<QLineSeries*> series;
    for (const QString& n : names) {
        auto* s = new QLineSeries(chart);
        s->setName(n);
        s->setPointsVisible(true);
        series << s;
    }
    double low = 0, high = 0;
    const QTreeWidget* list = ui->lvwExpense;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* it = list->topLevelItem(i);
        labels << it->text(0);
        for (int c = 0; c < 3; ++c) {
            const double v = Val(it->text(c + 1));
            series[c]->append(i, v);
            low = std::min(low, v);
            high = std::max(high, v);
        }
    }
    for (QLineSeries* s : series)
        chart->addSeries(s);
    // Row labels under their points; of many rows, every few, so that none is cut short.
    auto* x = new QCategoryAxis(chart);
    x->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    const qsizetype step = std::max<qsizetype>(1, (labels.size() + 11) / 12);
    for (qsizetype i = 0; i < labels.size(); i += step)
        x->append(labels[i], double(i));
    x->setRange(-0.5, std::max<double>(0.5, double(labels.size()) - 0.5));
    const bool longLabels = std::any_of(labels.begin(), labels.end(), [](const QString& l) { return l.size() > 4; });
    x->setLabelsAngle(longLabels ? -45 : 0);
    auto* y = new QValueAxis(chart);
    y->setLabelFormat(QStringLiteral("%.0f"));
    y->setTitleText(QStringLiteral("金额（元）"));
    y->setRange(low, high > low ? high * 1.05 : low + 100);
    y->applyNiceNumbers();
    chart->addAxis(x, Qt::AlignBottom);
    chart->addAxis(y, Qt::AlignLeft);
    for (QLineSeries* s : series) {
        s->attachAxis(x);
        s->attachAxis(y);
    }
}

QString frmChart::seriesText() const {
    QStringList out;
    const QList<QAbstractSeries*> all = ui->chaThis->chart()->series();
    QStringList head{QStringLiteral("行")};
    for (QAbstractSeries* s : all)
        head << s->name();
    out << head.join(QLatin1Char('\t'));
    const QTreeWidget* list = ui->lvwExpense;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        QStringList line{list->topLevelItem(i)->text(0)};
        for (QAbstractSeries* s : all)
            line << QString::number(static_cast<QLineSeries*>(s)->at(i).y(), 'f', 0);
        out << line.join(QLatin1Char('\t'));
    }
    return out.join(QLatin1Char('\n')) + QLatin1Char('\n');
}
