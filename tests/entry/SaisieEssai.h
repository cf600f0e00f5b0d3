#pragma once
// Gestes communs des essais de la saisie logique : lignes préparées de wSaisie comme le
// choix des comptes les pose ; les montants tapés dans les listes de SaisQuad sont des gestes
// communs (support/GestesSaisie.h).

#include "support/DonneesReference.h"
#include "support/ExerciceEssai.h"
#include "support/GestesGrille.h"
#include "support/GestesSaisie.h"

#include "entry/DonneesSaisie.h"
#include "entry/LigneMenu.h"
#include "session/Session.h"
#include "ui/Grille.h"

namespace essai {

// Ligne préparée pour un compte, marquée par la case cle (trois caractères).
inline void Preparer(const QString& numero, const QString& cle, double rang) {
    table::Compte c;
    QVERIFY2(LireCompte(Cle, numero, c), qPrintable(numero));
    table::Tableau t;
    QVERIFY2(LireLigneMenu(cle, t), qPrintable(cle));
    table::Saisie r = saisie::LignePreparee(c, t, rang, cle);
    AjouterSaisie(r);
}

} // namespace essai
