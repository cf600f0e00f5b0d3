#pragma once
// Aides des essais de la fin d'exercice : l'exercice 2024 des livres d'essai, ses totaux
// posés, l'écran Cloture piloté par ses boutons, les lignes d'une table sous une clé.

#include "support/LivresEssai.h"

#include "store/Base.h"
#include "store/Routines.h"

#include <QStringList>
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

} // namespace cloture_essai
