#pragma once
// Petits outils des essais : montants en euros, comptage des lignes de la base, textes des
// boîtes montrées, lecture d'un fichier produit.

#include "base/Montant.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <string>

namespace essai {

Montant Euros(double v);
// Un montant en euros tel que les écrans le montrent (image de la session).
QString AfficheEuros(double v);

// Première colonne de la première ligne (un COUNT(*) le plus souvent), -1 sans ligne ;
// valeur, si elle est donnée, remplace le « ? » de la requête.
int Compter(const std::string& sql, const QString& valeur = QString());

void Executer(const std::string& sql);

// Textes des boîtes montrées depuis la remise à zéro, dans l'ordre.
QStringList TextesBoites();

// Contenu d'un fichier, ou "<absent>" : un fichier manquant se voit dans le message.
QByteArray LireFichier(const QString& chemin);

// Le texte d'un PDF relu par pdftotext, mise en page gardée ; vide s'il ne se lit pas.
QString TextePdf(const QString& chemin);
// Ses pages, sans la page vide que pdftotext laisse après le dernier saut de page.
QStringList PagesPdf(const QString& chemin);

} // namespace essai
