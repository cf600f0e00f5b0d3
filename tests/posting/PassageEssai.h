#pragma once
// Banc des essais du passage d'une écriture : livres d'essai neufs et état de départ gardé
// pour chaque essai, clés de la section Securite de maroval.ini, lignes d'Ecriture et
// vérification complète des livres après une écriture.

#include "support/DossierEssai.h"
#include "support/LivresEssai.h"
#include "support/Recalcul.h"

#include "session/FichierProfil.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QList>
#include <QObject>
#include <QtTest>
#include <memory>

namespace essai {

class BancPassage : public QObject {
protected:
    std::unique_ptr<support::DossierEssai> dossier;
    Depart depart;

    void Ouvrir() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirLivres(dossier->Chemin());
        depart = Photographier();
    }
    void Fermer() {
        FichierProfil::AvantEcriture = nullptr;
        FermerBase();
        dossier.reset();
    }

    QString Ini(const char* cle) { return FichierProfil(CheminIni()).Lire("Securite", cle, "?"); }

    // Images d'un compte sous la clé temporaire.
    int Images(const char* numero) {
        SQLite::Statement q(Base(), "SELECT count(*) FROM Compte WHERE CleCpt='000000' AND "
                                    "NumCpt=?");
        q.bind(1, numero);
        q.executeStep();
        return q.getColumn(0).getInt();
    }

    // Livres recalculés et vérifiés, aucune image laissée, marqueur revenu à 0.
    void VerifierLivres() {
        const QString ecarts = EcartsDesLivres(depart);
        QVERIFY2(ecarts.isEmpty(), qPrintable(ecarts));
        QCOMPARE(Compter("SELECT count(*) FROM Compte WHERE CleCpt='000000'"), 0);
        QCOMPARE(Compter("SELECT count(*) FROM Budget WHERE CleCpt='000000'"), 0);
        QCOMPARE(Compter("SELECT count(*) FROM Constante WHERE CleCon='000000'"), 0);
        QCOMPARE(Ini("Erreur"), QStringLiteral("0"));
    }

    QList<table::Ecriture> Lignes() {
        QList<table::Ecriture> lignes;
        SQLite::Statement q(Base(), "SELECT NumEcr FROM Ecriture ORDER BY NumEcr");
        while (q.executeStep()) {
            table::Ecriture e;
            LireEcriture(Cle, q.getColumn(0).getDouble(), e);
            lignes << e;
        }
        return lignes;
    }
};

} // namespace essai
