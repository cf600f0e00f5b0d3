#pragma once
// Un enregistrement par table : les champs de la table, textes à largeur fixe (complétés
// de blancs à la lecture, coupés à l'écriture), montants mensuels en tableaux indexés
// de 1 à 12 (la case 0 ne sert jamais).

#include "base/Montant.h"

#include <QString>
#include <array>
#include <cstdint>

namespace table {

using Entier = std::int16_t;
using Mensuel = std::array<Montant, 13>;

struct Societe {
    Entier NumSoc = 0;
    QString Nom, Adresse, Postal, Ville, Telephone;
};

struct Constante {
    // La clé et les dates restent en texte variable dans cet enregistrement.
    QString CleCon, DateSaisie, DateDebut, DateFin;
    Montant TDJG;
    Mensuel TDJGM{};
    Montant TCJG;
    Mensuel TCJGM{};
    Montant TDJV;
    Mensuel TDJVM{};
    Montant TCJV;
    Mensuel TCJVM{};
    Montant TDJA;
    Mensuel TDJAM{};
    Montant TCJA;
    Mensuel TCJAM{};
    Montant TDJT;
    Mensuel TDJTM{};
    Montant TCJT;
    Mensuel TCJTM{};
    Montant TDJD;
    Mensuel TDJDM{};
    Montant TCJD;
    Mensuel TCJDM{};
    Montant TDJI;
    Mensuel TDJIM{};
    Montant TCJI;
    Mensuel TCJIM{};
    double LastNumEcrit = 0;
    Montant SDE1, E1, E2, SDR1, R1, R2;
    Montant BIENS, DAR, MD, CONS, SN, DAP, ACTI;
    Montant Resultat;
    bool NouveauPC = false, TransfertSoldes = false, OuvertureClos = false;
    bool ExerciceClos = false, Erreur = false;
    QString SymboleMon;
};

struct Compte {
    QString CleCpt, NumCpt, LibCpt, ErCpt, Bilan;
    bool Tiers = false;
    Montant Sde, CumD, CumC, Solde, SoldeAnte;
    Mensuel CumDM{}, CumCM{};
    Entier Menu = 0;
    QString Fisc;
};

struct Ecriture {
    QString CleCpt;
    double NumEcr = 0;
    QString DateEcr, DatePiece, NumCptEcr, ErEcr;
    Montant MntEcr;
    QString LibEcr, DCEcr, Journal;
    bool Fin = false;
    QString DateEcheance, MoisEcheance;
    std::uint8_t Lettrage = 0;
    Entier SectionEcr = 0;
    bool VentilEcr = false;
};

struct Budget {
    QString CleCpt, NumBud, LibBud, ERBUD;
    Montant ReelA;
    Mensuel ReelAM{};
    Montant Budget;
    Mensuel BudgetM{};
    Montant Reel;
    Mensuel ReelM{};
    Montant BudFut;
    Mensuel BudFutM{};
};

struct Section {
    QString CleCpt;
    Entier NumSection = 0;
    QString NomSection;
};

struct Ventilation {
    QString CleCpt;
    double NumVentil = 0;
    std::array<Montant, 99> Ventil{}; // parts des sections 1 à 98
};

struct Saisie {
    double wNumEcrt = 0;
    QString wDateEcr, wNumCpt, wErEcr, wLibCpt;
    Montant wSolde;
    bool wTiers = false;
    QString wBilan;
    Entier wMenu = 0;
    QString wDatePiece, wLibEcr, wDateEcheance;
    Montant wMntEcr;
    QString wDCEcr;
    bool wFin = false;
    QString wMoisEcheance;
    bool wLettrage = false;
    double wSectionEcr = 0, wVentilEcr = 0;
    QString wJournal, wMenuLigne;
    bool wRappel = false;
    QString wSigne, wNombre;
};

struct Wbilan {
    Entier Clef = 0;
    QString Numero1, Libelle1;
    Montant Solde1;
    QString Numero2, Libelle2;
    Montant Solde2;
};

struct Filtre {
    QString BorneInf, BorneSup, Message, ERCPT, Bilan;
    bool Tiers = false;
    QString Menu;
};

struct Tableau {
    QString tMenuLigne, tMenuPrincipal, tLibMenuprinc, tPremierMenu, tJournal, tMessage;
    bool tRappel = false;
    QString tNombre, tSigne;
    Entier tTaille = 0;
    QString tMenuAutorise;
};

} // namespace table
