#include "support/Outils.h"

#include "session/Session.h"
#include "store/Base.h"
#include "ui/Boite.h"

#include <QFile>
#include <SQLiteCpp/Statement.h>

namespace essai {

Montant Euros(double v) {
    return Montant::depuisDouble(v);
}

QString AfficheEuros(double v) {
    return AfficheMontant(Euros(v));
}

int Compter(const std::string& sql, const QString& valeur) {
    SQLite::Statement q(Base(), sql);
    if (!valeur.isNull()) q.bind(1, valeur.toStdString());
    return q.executeStep() ? q.getColumn(0).getInt() : -1;
}

void Executer(const std::string& sql) {
    Base().exec(sql);
}

QStringList TextesBoites() {
    QStringList textes;
    for (const ui::EntreeJournal& e : ui::JournalBoites())
        textes << e.texte;
    return textes;
}

QByteArray LireFichier(const QString& chemin) {
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<absent>");
}

} // namespace essai
