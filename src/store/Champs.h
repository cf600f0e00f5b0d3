#pragma once
// Liste des champs de chaque enregistrement, dans l'ordre des colonnes de sa table.
// Un visiteur reçoit (nom de colonne, champ, largeur) ; la largeur 0 marque un texte
// rangé sans être complété de blancs à la lecture.

#include "store/Enregistrements.h"

#include <string>

namespace champs {

inline std::string NomMois(const char* prefixe, int mois) {
    std::string n(prefixe);
    n += static_cast<char>('0' + mois / 10);
    n += static_cast<char>('0' + mois % 10);
    return n;
}

template <class V> void Mois(V& v, const char* prefixe, table::Mensuel& m) {
    for (int i = 1; i <= 12; ++i)
        v(NomMois(prefixe, i), m[i], 0);
}

template <class V> void Visiter(table::Societe& r, V& v) {
    v("NumSoc", r.NumSoc, 0);
    v("Nom", r.Nom, 30);
    v("Adresse", r.Adresse, 50);
    v("Postal", r.Postal, 6);
    v("Ville", r.Ville, 35);
    v("Téléphone", r.Telephone, 15);
}

template <class V> void Visiter(table::Constante& r, V& v) {
    v("CleCon", r.CleCon, 0);
    v("DateSaisie", r.DateSaisie, 0);
    v("DateDebut", r.DateDebut, 0);
    v("DateFin", r.DateFin, 0);
    v("TDJG", r.TDJG, 0);
    v("TCJG", r.TCJG, 0);
    v("TDJV", r.TDJV, 0);
    v("TCJV", r.TCJV, 0);
    v("TDJA", r.TDJA, 0);
    v("TCJA", r.TCJA, 0);
    v("TDJT", r.TDJT, 0);
    v("TCJT", r.TCJT, 0);
    v("TDJD", r.TDJD, 0);
    v("TCJD", r.TCJD, 0);
    v("TDJI", r.TDJI, 0);
    v("TCJI", r.TCJI, 0);
    Mois(v, "TDJGM", r.TDJGM);
    Mois(v, "TCJGM", r.TCJGM);
    Mois(v, "TDJVM", r.TDJVM);
    Mois(v, "TCJVM", r.TCJVM);
    Mois(v, "TDJAM", r.TDJAM);
    Mois(v, "TCJAM", r.TCJAM);
    Mois(v, "TDJTM", r.TDJTM);
    Mois(v, "TCJTM", r.TCJTM);
    Mois(v, "TDJDM", r.TDJDM);
    Mois(v, "TCJDM", r.TCJDM);
    Mois(v, "TDJIM", r.TDJIM);
    Mois(v, "TCJIM", r.TCJIM);
    v("LastNumEcrit", r.LastNumEcrit, 0);
    v("SDE1", r.SDE1, 0);
    v("E1", r.E1, 0);
    v("E2", r.E2, 0);
    v("SDR1", r.SDR1, 0);
    v("R1", r.R1, 0);
    v("R2", r.R2, 0);
    v("BIENS", r.BIENS, 0);
    v("DAR", r.DAR, 0);
    v("MD", r.MD, 0);
    v("CONS", r.CONS, 0);
    v("SN", r.SN, 0);
    v("DAP", r.DAP, 0);
    v("ACTI", r.ACTI, 0);
    v("Resultat", r.Resultat, 0);
    v("NouveauPC", r.NouveauPC, 0);
    v("TransfertSoldes", r.TransfertSoldes, 0);
    v("OuvertureClos", r.OuvertureClos, 0);
    v("ExerciceClos", r.ExerciceClos, 0);
    v("Erreur", r.Erreur, 0);
    v("SymboleMon", r.SymboleMon, 0);
}

template <class V> void Visiter(table::Compte& r, V& v) {
    v("CleCpt", r.CleCpt, 6);
    v("NumCpt", r.NumCpt, 8);
    v("LibCpt", r.LibCpt, 40);
    v("ErCpt", r.ErCpt, 2);
    v("Bilan", r.Bilan, 5);
    v("Tiers", r.Tiers, 0);
    v("Sde", r.Sde, 0);
    v("CumD", r.CumD, 0);
    v("CumC", r.CumC, 0);
    v("Solde", r.Solde, 0);
    v("SoldeAnte", r.SoldeAnte, 0);
    Mois(v, "CumDM", r.CumDM);
    Mois(v, "CumCM", r.CumCM);
    v("Menu", r.Menu, 0);
    v("Fisc", r.Fisc, 2);
}

template <class V> void Visiter(table::Ecriture& r, V& v) {
    v("CleCpt", r.CleCpt, 6);
    v("NumEcr", r.NumEcr, 0);
    v("DateEcr", r.DateEcr, 8);
    v("DatePiece", r.DatePiece, 8);
    v("NumCptEcr", r.NumCptEcr, 8);
    v("ErEcr", r.ErEcr, 2);
    v("MntEcr", r.MntEcr, 0);
    v("LibEcr", r.LibEcr, 40);
    v("DCEcr", r.DCEcr, 1);
    v("Journal", r.Journal, 1);
    v("Fin", r.Fin, 0);
    v("DateEcheance", r.DateEcheance, 8);
    v("MoisEcheance", r.MoisEcheance, 2);
    v("Lettrage", r.Lettrage, 0);
    v("SectionEcr", r.SectionEcr, 0);
    v("VentilEcr", r.VentilEcr, 0);
}

template <class V> void Visiter(table::Budget& r, V& v) {
    v("CleCpt", r.CleCpt, 6);
    v("NumBud", r.NumBud, 8);
    v("LibBud", r.LibBud, 40);
    v("ERBUD", r.ERBUD, 2);
    v("ReelA", r.ReelA, 0);
    Mois(v, "ReelAM", r.ReelAM);
    v("Budget", r.Budget, 0);
    Mois(v, "BudgetM", r.BudgetM);
    v("Reel", r.Reel, 0);
    Mois(v, "ReelM", r.ReelM);
    v("BudFut", r.BudFut, 0);
    Mois(v, "BudFutM", r.BudFutM);
}

template <class V> void Visiter(table::Section& r, V& v) {
    v("CleCpt", r.CleCpt, 6);
    v("NumSection", r.NumSection, 0);
    v("NomSection", r.NomSection, 40);
}

template <class V> void Visiter(table::Ventilation& r, V& v) {
    v("CleCpt", r.CleCpt, 6);
    v("NumVentil", r.NumVentil, 0);
    for (int i = 1; i <= 98; ++i)
        v(NomMois("Ventil", i), r.Ventil[i], 0);
}

template <class V> void Visiter(table::Saisie& r, V& v) {
    v("wNumEcrt", r.wNumEcrt, 0);
    v("wDateEcr", r.wDateEcr, 8);
    v("wNumCpt", r.wNumCpt, 8);
    v("wErEcr", r.wErEcr, 2);
    v("wLibCpt", r.wLibCpt, 40);
    v("wSolde", r.wSolde, 0);
    v("wTiers", r.wTiers, 0);
    v("wBilan", r.wBilan, 5);
    v("wMenu", r.wMenu, 0);
    v("wDatePiece", r.wDatePiece, 8);
    v("wLibEcr", r.wLibEcr, 40);
    v("wDateEcheance", r.wDateEcheance, 8);
    v("wMntEcr", r.wMntEcr, 0);
    v("wDCEcr", r.wDCEcr, 1);
    v("wFin", r.wFin, 0);
    v("wMoisEcheance", r.wMoisEcheance, 2);
    v("wLettrage", r.wLettrage, 0);
    v("wSectionEcr", r.wSectionEcr, 0);
    v("wVentilEcr", r.wVentilEcr, 0);
    v("wJournal", r.wJournal, 1);
    v("wMenuLigne", r.wMenuLigne, 50);
    v("wRappel", r.wRappel, 0);
    v("wSigne", r.wSigne, 1);
    v("wNombre", r.wNombre, 1);
}

template <class V> void Visiter(table::Wbilan& r, V& v) {
    v("Clef", r.Clef, 0);
    v("Numero1", r.Numero1, 8);
    v("Libelle1", r.Libelle1, 40);
    v("Solde1", r.Solde1, 0);
    v("Numero2", r.Numero2, 8);
    v("Libelle2", r.Libelle2, 40);
    v("Solde2", r.Solde2, 0);
}

template <class V> void Visiter(table::Filtre& r, V& v) {
    v("BorneInf", r.BorneInf, 5);
    v("BorneSup", r.BorneSup, 8);
    v("Message", r.Message, 50);
    v("ERCPT", r.ERCPT, 2);
    v("Bilan", r.Bilan, 5);
    v("Tiers", r.Tiers, 0);
    v("Menu", r.Menu, 3);
}

template <class V> void Visiter(table::Tableau& r, V& v) {
    v("tMenuLigne", r.tMenuLigne, 3);
    v("tMenuPrincipal", r.tMenuPrincipal, 2);
    v("tLibMenuprinc", r.tLibMenuprinc, 50);
    v("tPremierMenu", r.tPremierMenu, 1);
    v("tJournal", r.tJournal, 1);
    v("tMessage", r.tMessage, 50);
    v("tRappel", r.tRappel, 0);
    v("tNombre", r.tNombre, 1);
    v("tSigne", r.tSigne, 1);
    v("tTaille", r.tTaille, 0);
    v("tMenuAutorise", r.tMenuAutorise, 255);
}

} // namespace champs
