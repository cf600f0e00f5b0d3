#pragma once
// Marqueur d'arrêt brutal (section Securite de maroval.ini) et images sous "000000".

#include <QString>

// Supprime toutes les images d'une écriture (comptes, budgets, constantes).
void PurgerCleTemporaire();

// Début d'une écriture : Erreur = "1", la clé de l'exercice et le premier numéro, en une
// seule écriture durable du fichier. Un échec montre "Erreur lors de l'écriture dans
// MAROVAL.INI" et termine le programme.
void EcrireMarqueurDebut(const QString& cle, const QString& dernum);
// Erreur = "2" ou "0", avec le même contrôle.
void EcrireMarqueur(const QString& erreur);

// Ce que le marqueur désigne : l'exercice à remettre en état et le premier numéro perdu.
struct MarqueurLu {
    QString cle;
    double derNum = 0;
};
MarqueurLu LireMarqueur();

// Remet les images à la place des lignes de l'exercice et retire les lignes d'écriture
// à partir de derNum. Tout ou rien : un arrêt pendant la remise laisse les images.
void RestituerImages(const QString& cle, double derNum);
