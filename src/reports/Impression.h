#pragma once
// Imprimer un état : le choix de l'imprimante, l'aperçu, le fichier PDF, et les messages des
// échecs du moteur d'impression par leurs numéros.

#include "reports/Document.h"

#include <QString>

class QPrinter;

namespace rapport {

// Codes des échecs que le programme rencontre lui-même.
inline constexpr int ErreurImprimanteAbsente = 526; // aucune imprimante utilisable
inline constexpr int ErreurFichier = 530;           // fichier d'export impossible à écrire

// Le texte d'un code du moteur ; vide pour un code inconnu.
QString TexteErreurRapport(int code);
// Montre le texte dans une boîte critique (vide pour un code inconnu).
void MessageErreurRapport(int code);

// La boîte "L'impression est annulée." (dialogue d'impression ou fichier refusé).
void AnnoncerImpressionAnnulee();

// Le dialogue d'impression du système ; annulé : "L'impression est annulée." et faux.
bool ChoixImprimante(QPrinter& imprimante);

// Imprime l'état : fichierPdf donné, il y est écrit ; sinon le dialogue d'impression puis
// l'aperçu, d'où l'on imprime. Rend 0 si l'état est parti, le code de l'échec sinon (le
// message a été montré), -1 si l'utilisateur a annulé.
int ImprimerEtat(const Document& document, const QString& fichierPdf = QString());

// Imprime l'état, ou, enPdf vrai, l'écrit dans le fichier PDF choisi par le dialogue
// d'enregistrement (refusé : "L'impression est annulée."). Même réponse qu'ImprimerEtat.
int ImprimerOuEnregistrer(const Document& document, bool enPdf);

} // namespace rapport
