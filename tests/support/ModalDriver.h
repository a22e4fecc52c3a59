#pragma once
#include <QString>
#include <functional>

class QDialog;

// Runs `act` on the next modal dialog once it is shown, while the code under test sits in
// its exec(). With a name, only a dialog of that objectName counts; a dialog the action
// left open is then cancelled, so a failed check cannot hang the test.
void onModal(std::function<void(QDialog*)> act);
void onModal(const QString& name, std::function<void(QDialog*)> act);
