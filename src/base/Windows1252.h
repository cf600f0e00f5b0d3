#pragma once
// Texte en Windows-1252, un octet par caractère : le fichier de liaison fiscale est lu par
// des logiciels qui comptent ses colonnes en octets.

#include <QByteArray>
#include <QString>

// Chaque caractère donne exactement un octet : le sien en Windows-1252 ; sinon la lettre sans
// son accent quand elle y est (ő donne o) ; sinon "?". Tabulation, retour et autres
// caractères de commande deviennent un blanc.
QByteArray EnWindows1252(const QString& texte);

// L'octet d'un caractère, 0 quand Windows-1252 ne l'a pas.
char OctetWindows1252(char32_t caractere);
