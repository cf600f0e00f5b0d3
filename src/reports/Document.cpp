#include "reports/Document.h"

namespace rapport {

QString Document::Periode() const {
    if (debut.isEmpty() && fin.isEmpty()) return QString();
    return QStringLiteral("Exercice du %1 au %2").arg(debut, fin);
}

bool Document::ADesReports() const {
    for (const Colonne& c : colonnes)
        if (c.reportee) return true;
    return false;
}

QString TexteMontant(Montant montant, bool vide0) {
    if (vide0 && montant.estNul()) return QString();
    return FormaterMontant(montant, QStringLiteral("### ### ### ##0.00"));
}

} // namespace rapport
