#pragma once
// Réglages propres à l'utilisateur (dernier choix, tailles des fenêtres, options),
// rangés sous le nom d'application « Maroval ».

#include <QString>

QString LireReglage(const QString& section, const QString& cle, const QString& defaut = {});
void EcrireReglage(const QString& section, const QString& cle, const QString& valeur);
void EffacerReglage(const QString& section, const QString& cle = {});
