#pragma once
#include "ReceiptLayout.h"
#include <QList>
#include <QString>

// Where a job goes, as the printer settings name it:
//   ""                  the system's default printer
//   "PDF:" [folder]     a PDF file per job, in a folder of the venue ("Print" when none is
//                       named; a relative folder lies in the venue folder)
//   "tcp://host:port"   a network receipt printer taking ESC/POS (port 9100 when none is given)
//   anything else       a printer of the system by its name
// No setting of the system is changed for a job.
struct PrintTarget {
    enum class Kind { Default, System, Pdf, Network };
    Kind kind = Kind::Default;
    QString name; // System: printer; Pdf: folder; Network: host
    quint16 port = 9100;

    static PrintTarget parse(const QString& setting);
};

// How a printer setting is shown to people: the empty one is the system default.
QString PrinterShown(const QString& setting);
QString DefaultPrinterText();

// Sends `copies` of the slip. Empty text when it went out, else the reason. `fileName` names
// the PDF of the job, without folder and suffix.
QString SendReceipt(const QString& setting, const Receipt& receipt, Paper paper, int copies,
                    const QString& fileName);

// The entries of a printer list: the system default (when `withDefault`), the system's
// printers, the PDF folder, and a saved network or PDF target that is none of these.
struct PrinterChoice {
    QString text;
    QString value;
};
QList<PrinterChoice> PrinterChoices(const QString& saved = {}, bool withDefault = true);
