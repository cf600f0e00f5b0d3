#pragma once
// Petites routines de texte et de dates que tous les écrans utilisent.

#include <QString>

// Blanc au sens de la saisie : espace, tabulation, fins de ligne, espaces insécables
// (U+00A0, U+202F, que les formats de nombres du système peuvent produire).
bool EstBlanc(QChar c);

// Chiffre ASCII de 0 à 9 seulement (pas les autres chiffres d'Unicode).
bool EstChiffre(QChar c);

// Date écran JJ/MM/AAAA : mois 1 à 12, jour dans le mois, février à 29 jours les années
// divisibles par 4, année de 1900 à 2200. Toute autre forme est refusée.
bool DateValide(const QString& texte);

// AAAAMMJJ -> JJ/MM/AAAA et retour, par position. Un texte trop court donne un texte vide.
QString DateVersEcran(const QString& aaaammjj);
QString DateVersBase(const QString& jjmmaaaa);

// Double chaque guillemet ; l'argument est remplacé par le résultat.
QString DoublerGuillemets(QString& texte);
// Copie sans aucun blanc (voir EstBlanc).
QString SansEspaces(const QString& texte);
// Texte débarrassé de ses blancs aux bouts, premier point (resp. virgule) remplacé.
QString PointVersVirgule(const QString& texte);
QString VirguleVersPoint(const QString& texte);

// Texte de la boîte d'erreur d'exécution : texte donné, ligne de tirets, numéro et libellé
// de l'erreur, ligne de tirets.
QString TexteErreur(const QString& texte, int numeroErreur, const QString& libelleErreur);

// Une fraction comme l'image "0.00%" la montre : 0,2 donne "20,00%".
QString FormatPourcent(double fraction);
// Un pourcentage tapé ou affiché ("30", "30.5", "30,00%") ; vide vaut 0 ; faux s'il ne se
// lit pas.
bool LirePourcentage(const QString& texte, double& valeur);
