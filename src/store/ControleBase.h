#pragma once
// Contrôle d'un fichier de base sans jamais l'écrire : au démarrage avant toute écriture,
// et sur la base d'une archive avant de la mettre en place.

#include <QString>

enum class EtatBase {
    Absente,    // pas de fichier : une base neuve sera créée
    Saine,      // lisible, intègre, tables et colonnes de Maroval
    Endommagee, // fichier de base abîmé (pages, en-tête, fichier tronqué)
    Etrangere,  // fichier lisible qui n'est pas une base de Maroval (ou vide)
};

struct DiagnosticBase {
    EtatBase etat = EtatBase::Absente;
    QString raison; // en français, nomme ce qui manque ou ce qui est abîmé ; vide si saine
};

// Ouvre le fichier en lecture seule et le contrôle : PRAGMA quick_check (rapide, ce que le
// démarrage paie), ou PRAGMA integrity_check quand complet est vrai, puis les tables et
// colonnes du schéma livré.
DiagnosticBase ControlerBase(const QString& chemin, bool complet = false);
