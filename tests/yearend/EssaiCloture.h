#pragma once
// Aides des essais de la fin d'exercice : l'exercice 2024 des livres d'essai, ses totaux
// posés, l'écran Cloture piloté par ses boutons, les lignes d'une table sous une clé.

#include "support/LivresEssai.h"

#include "store/Base.h"
#include "store/Routines.h"

#include <QStringList>
#include <QTest>
#include <SQLiteCpp/Statement.h>
#include <string>

namespace cloture_essai {

inline const QString Suivante = QStringLiteral("012025");

// Retouche la ligne de Constante d'une clé.
template <class F> void Constante(const QString& cle, F modifier) {
    table::Constante k;
    LireConstante(cle, k);
    modifier(k);
    MajConstante(cle, k);
}

inline table::Constante Lue(const QString& cle) {
    table::Constante k;
    LireConstante(cle, k);
    return k;
}

inline table::Compte CompteLu(const QString& cle, const QString& numero) {
    table::Compte c;
    LireCompte(cle, numero, c);
    return c;
}

// Chaque ligne d'une table sous une clé, valeur par valeur, dans l'ordre donné.
inline QStringList Lignes(const std::string& table, const std::string& colonneCle,
                          const QString& cle, const std::string& ordre) {
    QStringList sortie;
    SQLite::Statement q(Base(), "SELECT * FROM " + table + " WHERE " + colonneCle +
                                    " = ? ORDER BY " + ordre);
    q.bind(1, cle.toStdString());
    while (q.executeStep()) {
        QStringList valeurs;
        for (int i = 0; i < q.getColumnCount(); ++i)
            valeurs << QString::fromUtf8(q.getColumn(i).getText());
        sortie << valeurs.join(QLatin1Char('|'));
    }
    return sortie;
}

// Toutes les lignes de l'exercice suivant (Compte, Budget, Constante, Section).
inline QStringList ExerciceSuivant() {
    return Lignes("Compte", "CleCpt", Suivante, "NumCpt") +
           Lignes("Budget", "CleCpt", Suivante, "NumBud") +
           Lignes("Constante", "CleCon", Suivante, "CleCon") +
           Lignes("Section", "CleCpt", Suivante, "NumSection");
}

// Les totaux d'ouverture recalculés ici, ligne à ligne, depuis les comptes de l'exercice
// suivant : ce que la passe doit avoir écrit.
inline table::Constante TotauxAttendus() {
    table::Constante k;
    SQLite::Statement q(Base(), "SELECT NumCpt, ErCpt, Bilan, Sde, CumD, CumC, Solde FROM "
                                "Compte WHERE CleCpt='012025'");
    while (q.executeStep()) {
        const QString numero = QString::fromUtf8(q.getColumn(0).getText());
        const auto m = [&q](int i) {
            return Montant::depuisDixMilliemes(q.getColumn(i).getInt64());
        };
        if (m(3).estNul() && m(4).estNul() && m(5).estNul()) continue;
        if (!(numero < QLatin1String("59999999"))) continue;
        if (numero == QLatin1String("400") || numero == QLatin1String("410")) continue;
        if (QString::fromUtf8(q.getColumn(1).getText()) == QLatin1String("E1")) {
            k.SDE1 += m(3);
            k.E1 += m(6);
        } else {
            k.SDR1 += m(3);
            k.R1 += m(6);
        }
        const QString b = QString::fromUtf8(q.getColumn(2).getText()).trimmed();
        if (b == QLatin1String("SN")) k.SN += m(6);
        if (b == QLatin1String("DAP")) k.DAP += m(6);
        if (b == QLatin1String("BIENS")) k.BIENS += m(6);
        if (b == QLatin1String("DAR")) k.DAR += m(6);
        if (b == QLatin1String("MD")) k.MD += m(6);
    }
    return k;
}

inline void ComparerTotaux() {
    const table::Constante a = TotauxAttendus(), n = Lue(Suivante);
    QCOMPARE(n.SDE1, a.SDE1);
    QCOMPARE(n.SDR1, a.SDR1);
    QCOMPARE(n.E1, a.E1);
    QCOMPARE(n.R1, a.R1);
    QCOMPARE(n.SN, a.SN);
    QCOMPARE(n.DAP, a.DAP);
    QCOMPARE(n.BIENS, a.BIENS);
    QCOMPARE(n.DAR, a.DAR);
    QCOMPARE(n.MD, a.MD);
}

} // namespace cloture_essai
