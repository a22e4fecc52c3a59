#include "StockEntry.h"
#include "MessageBox.h"
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeWidget>

void StockEntry::bindEntry() {
    m_mnemonics = findChild<QLineEdit*>(QStringLiteral("txtMnemonics"));
    m_wareName = findChild<QLineEdit*>(QStringLiteral("txtWareName"));
    m_wareUnit = findChild<QLineEdit*>(QStringLiteral("txtWareUnit"));
    m_list = findChild<QTreeWidget*>(QStringLiteral("lvwThis"));
    m_mnemonics->installEventFilter(this);
}

bool StockEntry::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_mnemonics) {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                findWare(true);
                return true;
            }
        } else if (event->type() == QEvent::FocusOut && m_mnemonics->text() != m_looked) {
            findWare(false);
        }
    }
    return QDialog::eventFilter(watched, event);
}

void StockEntry::findWare(bool moveOn) {
    const QString text = m_mnemonics->text();
    m_looked = text;
    if (text.trimmed().isEmpty()) {
        if (moveOn) focusNextChild();
        return;
    }
    try {
        m_currentWare = ReceiptService().findWare(text);
    } catch (const DbError& e) {
        m_currentWare.reset();
        Msg::critical(this, e.message(QStringLiteral("txtMnemonics_KeyPress"), objectName()));
    }
    m_wareName->setText(m_currentWare ? m_currentWare->wareName : QString());
    m_wareUnit->setText(m_currentWare ? m_currentWare->wareUnit : QString());
    if (!m_currentWare) {
        Msg::info(this, QStringLiteral("没找到您输入的商品或服务，请检查输入是否正确！"));
        m_mnemonics->setFocus();
        m_mnemonics->selectAll();
        return;
    }
    wareFound();
    if (moveOn) focusNextChild();
}

void StockEntry::clearEntry() {
    m_currentWare.reset();
    m_looked.clear();
    for (QLineEdit* e : entryBoxes() + QList<QLineEdit*>{m_mnemonics, m_wareName, m_wareUnit})
        e->clear();
    m_mnemonics->setFocus();
}

void StockEntry::cmdDel_Click() {
    QTreeWidgetItem* it = m_list->currentItem();
    if (!it || !it->isSelected()) return;
    delete it;
}
