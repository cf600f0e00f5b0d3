#pragma once
// Une petite société connue pour la balance fiscale : bilan d'ouverture 512 / 101, deux
// clients (l'un soldé, l'autre créditeur après un trop-perçu), deux fournisseurs (l'un soldé
// avec des mouvements, l'autre débiteur après une avance), TVA, achats, ventes ; soldes de
// l'exercice précédent posés à la main sur quelques comptes ; compte 120 présent mais nul.
#include "support/LivresEssai.h"

#include "posting/Filtre.h"

namespace fiscal_essai {

inline void LivresFiscaux(const QString& dossier) {
    using essai::Cle;
    using essai::Euros;
    essai::OuvrirLivres(dossier);
    essai::Executer("INSERT INTO filtre (BorneInf, BorneSup, Message, ERCPT, Bilan, Tiers, Menu) "
                    "VALUES ('120', '120ZZZZZ', 'Résultat (bénéfice)', 'R1', 'SN', 0, 50), "
                    "('129', '129ZZZZZ', 'Résultat (perte)', 'R1', 'SN', 0, 55)");
    AssurerCompte(Cle, "120", "Résultat de l'exercice", {}, {});
    AssurerCompte(Cle, "411002", "Client Petit", {}, {});
    AssurerCompte(Cle, "401002", "Fournisseur Leroy", {}, {});
    essai::SoldeOuverture("512", Euros(1000));
    essai::SoldeOuverture("101", Euros(1000));
    essai::Ecriture("05/02/2024", "V",
                    {{"411001", "D", 120}, {"707", "C", 100}, {"44571", "C", 20}});
    essai::Ecriture("10/03/2024", "V", {{"411002", "D", 60}, {"707", "C", 50}, {"44571", "C", 10}});
    essai::Ecriture("12/03/2024", "A", {{"607", "D", 80}, {"44566", "D", 16}, {"401001", "C", 96}});
    essai::Ecriture("20/03/2024", "T", {{"512", "D", 120}, {"411001", "C", 120}});
    essai::Ecriture("22/03/2024", "T", {{"512", "D", 90}, {"411002", "C", 90}});
    essai::Ecriture("25/03/2024", "T", {{"401001", "D", 96}, {"512", "C", 96}});
    essai::Ecriture("26/03/2024", "T", {{"401002", "D", 40}, {"512", "C", 40}});
    // Soldes de l'exercice précédent (dix-millièmes).
    essai::Executer("UPDATE Compte SET SoldeAnte = 10000000 WHERE CleCpt = '012024' AND NumCpt = "
                    "'101'");
    essai::Executer("UPDATE Compte SET SoldeAnte = 8000000 WHERE CleCpt = '012024' AND NumCpt = "
                    "'512'");
    essai::Executer("UPDATE Compte SET SoldeAnte = 5000000 WHERE CleCpt = '012024' AND NumCpt = "
                    "'707'");
    essai::Executer("UPDATE Compte SET SoldeAnte = 500000 WHERE CleCpt = '012024' AND NumCpt = "
                    "'411001'");
}

// Le fichier de liaison attendu de ces livres, écrit à la main : par enregistrement, NumCpt
// (octets 0 à 7), Intitule (8 à 42), puis SoldeAN (43), MvtDeb (59), MvtCre (75), Solde (91),
// SoldeAnt (107), seize octets chacun, et CR LF. Les accents en Windows-1252 (é = E9).
inline QByteArray LiaisonAttendue() {
    return QByteArray(
        // Capital (R1) : à-nouveau, solde et solde antérieur au crédit, donc négatifs.
        "101     "
        "Capital                            "
        "        -1000,00"
        "            0,00"
        "            0,00"
        "        -1000,00"
        "        -1000,00"
        "\r\n"
        "44566   "
        "TVA d\xE9"
        "ductible                     "
        "            0,00"
        "           16,00"
        "            0,00"
        "           16,00"
        "            0,00"
        "\r\n"
        "44571   "
        "TVA collect\xE9"
        "e                      "
        "            0,00"
        "            0,00"
        "           30,00"
        "          -30,00"
        "            0,00"
        "\r\n"
        // Banque : 1 000 d'ouverture, 210 reçus, 136 payés.
        "512     "
        "Banque                             "
        "         1000,00"
        "          210,00"
        "          136,00"
        "         1074,00"
        "          800,00"
        "\r\n"
        // Achats (E2) : pas d'à-nouveau pour un compte de gestion.
        "607     "
        "Achats de marchandises             "
        "            0,00"
        "           80,00"
        "            0,00"
        "           80,00"
        "            0,00"
        "\r\n"
        "707     "
        "Ventes de marchandises             "
        "            0,00"
        "            0,00"
        "          150,00"
        "         -150,00"
        "         -500,00"
        "\r\n"
        // Les quatre regroupements des tiers, toujours à la fin.
        "401     "
        "Fournisseurs Cr\xE9"
        "diteurs            "
        "            0,00"
        "           96,00"
        "           96,00"
        "            0,00"
        "            0,00"
        "\r\n"
        "409100  "
        "Fournisseurs D\xE9"
        "biteurs             "
        "            0,00"
        "           40,00"
        "            0,00"
        "           40,00"
        "            0,00"
        "\r\n"
        "411     "
        "Clients D\xE9"
        "biteurs                  "
        "            0,00"
        "          120,00"
        "          120,00"
        "            0,00"
        "           50,00"
        "\r\n"
        "419100  "
        "Clients Cr\xE9"
        "diteurs                 "
        "            0,00"
        "           60,00"
        "           90,00"
        "          -30,00"
        "            0,00"
        "\r\n");
}

} // namespace fiscal_essai
