#pragma once
// Porte des données de la balance fiscale : la table de travail Fiscal remplie depuis les
// comptes de l'exercice (clients et fournisseurs regroupés), le contrôle des livres par
// elle, et le fichier de liaison à largeur fixe que le cabinet comptable charge.

#include "base/Montant.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <vector>

namespace etats {
struct LigneFiscale;
}

namespace fiscal {

// Ne garde que chiffres et lettres sans accent, six au plus, en majuscules.
QString FiltreNomFichier(const QString& texte);

// Nom proposé du fichier : la société filtrée, les deux derniers chiffres de l'exercice.
QString NomParDefaut(const QString& nomSociete, int exercice);

// Vrai si un compte de résultat (Menu 50 ou 55, comptes 120 à 129) a un solde.
bool ResultatsNonSoldes(const QString& cle);

// Nombre de comptes de l'exercice (la jauge de la création va jusque-là).
int NombreComptes(const QString& cle);

// Vide la table Fiscal.
void ViderFiscal();

// Remplit Fiscal : un enregistrement par compte qui a un montant (hors collectifs, 699 et
// 799), dans l'ordre des numéros, puis les quatre regroupements des tiers (401, 409100,
// 411, 419100), même à zéro. avance(n) après chaque compte lu.
void RemplirFiscal(const QString& cle, const std::function<void(int)>& avance);

// Les huit sommes du contrôle : [0] bilan, [1] compte de résultat (numéros en 6 ou 7).
struct SommesFiscal {
    Montant mvtDeb[2], mvtCre[2], soldesDeb[2], soldesCre[2];
};
SommesFiscal Sommer(const std::vector<etats::LigneFiscale>& lignes);

// Les livres sont en ordre : mouvements débit = crédit, soldes débiteurs = créditeurs, et
// le résultat du bilan = celui du compte de résultat = le résultat de l'exercice ; chaque
// somme en valeur absolue, arrondie aux centimes.
bool LivresEnOrdre(const SommesFiscal& sommes, Montant resultat);

// Signe décimal du fichier : celui du réglage régional du programme (sDecimal), la virgule
// quand il n'est pas fixé.
QChar SigneDecimal();

// Un enregistrement du fichier de liaison : 123 octets en Windows-1252 puis CR LF. Vide, et
// erreur renseignée, si un montant ne tient pas dans ses seize caractères.
QByteArray Enregistrement(const etats::LigneFiscale& ligne, QChar decimal, QString* erreur);
// Tout le fichier, dans l'ordre des lignes ; vide et erreur renseignée en cas de refus.
QByteArray FichierLiaison(const std::vector<etats::LigneFiscale>& lignes, QChar decimal,
                          QString* erreur);

} // namespace fiscal
