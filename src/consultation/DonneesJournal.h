#pragma once
// Les lignes d'écriture de l'exercice ouvert telles que les journaux les montrent, sans
// écran : la consultation des journaux, l'annulation et le changement de libellé lisent
// toutes ici.

#include "base/Montant.h"

#include <QString>
#include <QStringList>
#include <functional>

namespace journal {

struct Ligne {
    double numero = 0;
    QString dateEcr, datePiece; // AAAAMMJJ
    QString libelle, compte, journal;
    Montant montant;
    bool debit = false;
    bool fin = false; // dernière ligne de son écriture
};
using Lecteur = std::function<void(const Ligne&)>;

// Nombre de lignes du journal ("*" : tous les journaux).
int NombreLignes(const QString& code);
// Les lignes du journal par numéro, croissant ou décroissant.
void LireLignes(const QString& code, bool decroissant, const Lecteur& lecteur);
// Les lignes de numéro debut à fin, par numéro croissant.
void LireLignesDe(double debut, double fin, const Lecteur& lecteur);
// Marque de fin de la ligne de ce numéro ; un numéro sans ligne rend vrai.
bool MarqueFin(double numero);

// "Numéro", "Date Saisie", "Date Pièce", "Libellé", "Compte", "Débit", "Crédit", puis la
// colonne du journal (sans titre à l'écran, "Journal" dans un export).
QStringList Titres(const QString& titreJournal = QString());
// Rang des colonnes du numéro, des deux dates et des deux montants.
inline constexpr int ColonneNumero = 0, ColonneDateSaisie = 1, ColonneDatePiece = 2,
                     ColonneDebit = 5, ColonneCredit = 6;

// Textes d'une ligne : dates à l'écran, montant dans la colonne de son sens.
QStringList Textes(const Ligne& l, const QString& montantAffiche);

} // namespace journal
