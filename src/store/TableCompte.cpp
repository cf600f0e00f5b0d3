#include "store/Acces.h"
#include "store/Routines.h"

QString CleExercice(int numSoc, int annee) {
    return QStringLiteral("%1%2")
        .arg(numSoc, 2, 10, QLatin1Char('0'))
        .arg(annee, 4, 10, QLatin1Char('0'));
}

bool LireCompte(const QString& cle, const QString& numero, table::Compte& r) {
    return acces::LireLigne("Compte", "NumCpt=? and CleCpt=?", r, numero.trimmed(), cle);
}

void AjouterCompte(table::Compte& r) {
    acces::AjouterLigne("Compte", r);
}

bool MajCompte(const QString& cle, const QString& numero, table::Compte& r) {
    return acces::MajLigne("Compte", "NumCpt=? and CleCpt=?", r, numero.trimmed(), cle);
}
