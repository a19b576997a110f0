#pragma once
// The application object of a script's form (its oAppGlobal), as the record toolbar reaches
// it by name: the user, the workstation and the main database. It asks no questions itself,
// so the toolbar's questions go through the library's message boxes.

#include <QObject>
#include <QString>

namespace zlx {

class ScriptAppGlobal : public QObject {
    Q_OBJECT
    Q_PROPERTY(int ID_User MEMBER idUser)
    Q_PROPERTY(int ID_Station MEMBER idStation)
    Q_PROPERTY(QString MainDB MEMBER mainDB)

public:
    int idUser = 0;
    int idStation = 0;
    QString mainDB;
};

} // namespace zlx
