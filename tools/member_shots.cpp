// The members part of the screenshots: the member list searched with one member's
// records, the member dialog, a top-up, the top-up list, the classes and the password.
#include "ShotSave.h"
#include "Clock.h"
#include "StoredValueService.h"
#include "frmChangePw.h"
#include "frmChongzhi.h"
#include "frmChongzhiList.h"
#include "frmMember.h"
#include "frmMemberList.h"
#include "frmMemberSetup.h"
#include "frmSetupMember.h"
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <cstdio>

namespace {
} // namespace

void MemberShots(const QString& out) {
    StoredValueService topUps;
    for (const auto& [code, pay, credit, note] :
         {std::tuple{"8003", "1000", "1200", "开卡充一千送两百"}, std::tuple{"8003", "500", "500", ""},
          std::tuple{"8002", "200", "200", "现金"}, std::tuple{"8004", "800", "900", "周年活动"}})
        topUps.save({QString::fromUtf8(code), QString::fromUtf8(pay), QString::fromUtf8(credit),
                     QString::fromUtf8(note)});

    frmMemberList members;
    members.resize(1100, 640);
    members.prepare(false);
    members.findChild<QPushButton*>(QStringLiteral("cmdFind"))->click();
    auto* list = members.findChild<QTreeWidget*>(QStringLiteral("lvwThis"));
    const QList<QTreeWidgetItem*> li = list->findItems(QStringLiteral("8003"), Qt::MatchExactly, 0);
    if (!li.isEmpty()) list->setCurrentItem(li.first());
    SaveShot(&members, out, QStringLiteral("frmMemberList"));
    members.prepare(true);
    members.findChild<QLineEdit*>(QStringLiteral("txtName"))->setText(QStringLiteral("李"));
    members.findChild<QPushButton*>(QStringLiteral("cmdFind"))->click();
    SaveShot(&members, out, QStringLiteral("frmMemberList-pick"));

    frmMember member;
    member.startEdit(QStringLiteral("8003"));
    SaveShot(&member, out, QStringLiteral("frmMember"));
    frmMember newMember;
    newMember.startAdd();
    SaveShot(&newMember, out, QStringLiteral("frmMember-add"));

    frmChongzhi topUp;
    topUp.prepare(QStringLiteral("8003"));
    topUp.findChild<QLineEdit*>(QStringLiteral("txtFactPay"))->setText(QStringLiteral("300"));
    topUp.findChild<QLineEdit*>(QStringLiteral("txtThisMemoney"))->setText(QStringLiteral("330"));
    topUp.findChild<QLineEdit*>(QStringLiteral("txtDesc"))->setText(QStringLiteral("充三百送三十"));
    SaveShot(&topUp, out, QStringLiteral("frmChongzhi"));

    frmChongzhiList topUpList;
    topUpList.prepare(2);
    SaveShot(&topUpList, out, QStringLiteral("frmChongzhiList"));

    frmSetupMember classes;
    classes.LoadData();
    SaveShot(&classes, out, QStringLiteral("frmSetupMember"));
    frmMemberSetup memberClass;
    memberClass.startAdd();
    SaveShot(&memberClass, out, QStringLiteral("frmMemberSetup"));
    frmChangePw password;
    password.prepare(2, QStringLiteral("8003"));
    SaveShot(&password, out, QStringLiteral("frmChangePw"));
}
