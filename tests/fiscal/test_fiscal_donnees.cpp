// La balance fiscale sans écran : table Fiscal (regroupements, signes, comptes laissés de
// côté), contrôle des livres, nom du fichier, fichier de liaison à l'octet près.
#include "EssaiFiscal.h"
#include "support/DossierEssai.h"

#include "base/Durable.h"
#include "base/Reglages.h"
#include "base/Windows1252.h"
#include "fiscal/DonneesFiscal.h"
#include "posting/Verification.h"
#include "reports/DonneesEtats.h"
#include "ui/Application.h"

#include <QFile>
#include <QtTest>

using essai::Cle;
using essai::Euros;

namespace {

QStringList Numeros() {
    QStringList n;
    for (const etats::LigneFiscale& l : etats::LireFiscal())
        n << l.numCpt;
    return n;
}

etats::LigneFiscale Ligne(const QString& numero) {
    for (const etats::LigneFiscale& l : etats::LireFiscal())
        if (l.numCpt == numero) return l;
    qFatal("ligne %s absente de Fiscal", qPrintable(numero));
}

} // namespace

class TestFiscalDonnees : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        fiscal_essai::LivresFiscaux(dossier->Chemin());
        EffacerReglage(QStringLiteral("intl"), QStringLiteral("sDecimal"));
    }
    void cleanup() {
        EffacerReglage(QStringLiteral("intl"), QStringLiteral("sDecimal"));
        FermerBase();
        dossier.reset();
    }

    void nomDeFichier_societeDEte() {
        QCOMPARE(fiscal::FiltreNomFichier(QStringLiteral("Société d'Été")),
                 QStringLiteral("SOCITD"));
        QCOMPARE(fiscal::NomParDefaut(QStringLiteral("Société d'Été"), 2024),
                 QStringLiteral("SOCITD24.txt"));
        QCOMPARE(fiscal::FiltreNomFichier(QStringLiteral("ab-cd 12345678")),
                 QStringLiteral("ABCD12"));
        QCOMPARE(fiscal::FiltreNomFichier(QStringLiteral("«Été»")), QStringLiteral("T"));
        QCOMPARE(fiscal::FiltreNomFichier(QStringLiteral("é-è")), QString());
        QCOMPARE(fiscal::NomParDefaut(QStringLiteral("Durand"), 2005),
                 QStringLiteral("DURAND05.txt"));
    }

    void table_comptesPuisRegroupementsALaFin() {
        fiscal::ViderFiscal();
        QList<int> avance;
        fiscal::RemplirFiscal(Cle, [&](int n) { avance << n; });
        // Les collectifs, 699 et 799, et les comptes sans montant (120, 2154...) n'y sont pas.
        QCOMPARE(Numeros(), (QStringList{"101", "44566", "44571", "512", "607", "707", "401",
                                         "409100", "411", "419100"}));
        QCOMPARE(avance.size(), fiscal::NombreComptes(Cle));
        QCOMPARE(avance.last(), fiscal::NombreComptes(Cle));
        // Relancée, la table ne double rien.
        fiscal::ViderFiscal();
        fiscal::RemplirFiscal(Cle, {});
        QCOMPARE(Numeros().size(), 10);
    }

    void signes_debitPositifCreditNegatif() {
        fiscal::RemplirFiscal(Cle, {});
        const etats::LigneFiscale capital = Ligne("101");
        QCOMPARE(capital.intitule, QStringLiteral("Capital"));
        QCOMPARE(capital.soldeAN, -Euros(1000));
        QCOMPARE(capital.solde, -Euros(1000));
        QCOMPARE(capital.soldeAnt, -Euros(1000));
        const etats::LigneFiscale banque = Ligne("512");
        QCOMPARE(banque.soldeAN, Euros(1000));
        QCOMPARE(banque.mvtDeb, Euros(210));
        QCOMPARE(banque.mvtCre, Euros(136));
        QCOMPARE(banque.solde, Euros(1074));
        QCOMPARE(banque.soldeAnt, Euros(800));
        const etats::LigneFiscale ventes = Ligne("707");
        QCOMPARE(ventes.soldeAN, Montant());
        QCOMPARE(ventes.solde, -Euros(150));
        QCOMPARE(ventes.soldeAnt, -Euros(500));
        QCOMPARE(Ligne("607").solde, Euros(80));
    }

    // Un fournisseur soldé compte dans la ligne 401, même avec des mouvements.
    void fournisseurSolde_dansLaLigne401() {
        QVERIFY(essai::LireCpt("401001").Solde.estNul());
        fiscal::RemplirFiscal(Cle, {});
        const etats::LigneFiscale l = Ligne("401");
        QCOMPARE(l.intitule, QStringLiteral("Fournisseurs Créditeurs"));
        QCOMPARE(l.mvtDeb, Euros(96));
        QCOMPARE(l.mvtCre, Euros(96));
        QCOMPARE(l.solde, Montant());
        // L'avance à un fournisseur le rend débiteur : ligne 409100, au débit.
        QCOMPARE(essai::LireCpt("401002").Solde, -Euros(40));
        QCOMPARE(Ligne("409100").solde, Euros(40));
        QCOMPARE(Ligne("409100").intitule, QStringLiteral("Fournisseurs Débiteurs"));
        // Client soldé en 411, client qui a trop payé en 419100, au crédit.
        QCOMPARE(Ligne("411").mvtDeb, Euros(120));
        QCOMPARE(Ligne("411").soldeAnt, Euros(50));
        QCOMPARE(Ligne("419100").solde, -Euros(30));
        QCOMPARE(Ligne("419100").intitule, QStringLiteral("Clients Créditeurs"));
    }

    // Les quatre regroupements sont écrits même à zéro.
    void regroupements_presentsMemeANul() {
        essai::Executer("UPDATE Compte SET Sde = 0, CumD = 0, CumC = 0, Solde = 0, SoldeAnte = 0 "
                        "WHERE CleCpt = '012024' AND Menu IN (160, 170)");
        fiscal::RemplirFiscal(Cle, {});
        const std::vector<etats::LigneFiscale> lignes = etats::LireFiscal();
        QCOMPARE(lignes.size(), std::size_t(10));
        for (std::size_t i = 6; i < 10; ++i) {
            QVERIFY(lignes[i].solde.estNul() && lignes[i].mvtDeb.estNul() &&
                    lignes[i].mvtCre.estNul() && lignes[i].soldeAN.estNul());
        }
        QCOMPARE(lignes[9].numCpt, QStringLiteral("419100"));
    }

    void comptesDeResultat_soldeNonNulDetecte() {
        QVERIFY(!fiscal::ResultatsNonSoldes(Cle));
        essai::Ecriture("28/03/2024", "D", {{"120", "C", 10}, {"512", "D", 10}});
        QVERIFY(fiscal::ResultatsNonSoldes(Cle));
    }

    void controle_livresEnOrdre() {
        fiscal::RemplirFiscal(Cle, {});
        const table::Constante k = essai::Constante();
        QCOMPARE(k.Resultat, Euros(70));
        const fiscal::SommesFiscal s = fiscal::Sommer(etats::LireFiscal());
        QCOMPARE(s.mvtDeb[0] + s.mvtDeb[1], Euros(622));
        QCOMPARE(s.mvtCre[0] + s.mvtCre[1], Euros(622));
        QCOMPARE(s.soldesDeb[0], Euros(1130));
        QCOMPARE(s.soldesCre[0], -Euros(1060));
        QCOMPARE(s.soldesDeb[1], Euros(80));
        QCOMPARE(s.soldesCre[1], -Euros(150));
        QVERIFY(fiscal::LivresEnOrdre(s, k.Resultat));
        // Un résultat de l'exercice qui ne s'accorde pas, puis des mouvements déséquilibrés.
        QVERIFY(!fiscal::LivresEnOrdre(s, Euros(71)));
        fiscal::SommesFiscal boiteux = s;
        boiteux.mvtDeb[0] += Euros(0.01);
        QVERIFY(!fiscal::LivresEnOrdre(boiteux, k.Resultat));
        // Une différence sous le centime disparaît à l'arrondi des sommes.
        boiteux = s;
        boiteux.mvtDeb[0] += Montant::depuisDixMilliemes(1);
        QVERIFY(fiscal::LivresEnOrdre(boiteux, k.Resultat));
        boiteux = s;
        boiteux.soldesDeb[1] += Euros(5);
        QVERIFY(!fiscal::LivresEnOrdre(boiteux, k.Resultat));
    }

    void fichier_octetParOctet() {
        fiscal::RemplirFiscal(Cle, {});
        QString erreur;
        const QByteArray fichier =
            fiscal::FichierLiaison(etats::LireFiscal(), fiscal::SigneDecimal(), &erreur);
        QCOMPARE(erreur, QString());
        const QByteArray attendu = fiscal_essai::LiaisonAttendue();
        QCOMPARE(fichier.size(), 10 * 125);
        for (qsizetype debut = 0; debut < fichier.size(); debut += 125) {
            QCOMPARE(fichier.mid(debut + 123, 2), QByteArray("\r\n"));
            QVERIFY(!fichier.mid(debut, 123).contains('\n'));
        }
        QCOMPARE(fichier, attendu);
    }

    void signeDecimal_duReglage() {
        QCOMPARE(fiscal::SigneDecimal(), QChar(','));
        EcrireReglage(QStringLiteral("intl"), QStringLiteral("sDecimal"), QStringLiteral("."));
        QCOMPARE(fiscal::SigneDecimal(), QChar('.'));
        etats::LigneFiscale l{"512", "Banque", Euros(-12.5), {}, {}, {}, {}};
        const QByteArray e = fiscal::Enregistrement(l, fiscal::SigneDecimal(), nullptr);
        QCOMPARE(e.mid(43, 16), QByteArray("          -12.50"));
    }

    // Des caractères hors de Windows-1252 : remplacés, jamais un enregistrement court.
    void libellesHorsWindows1252_unOctetParCaractere() {
        QCOMPARE(EnWindows1252(QStringLiteral("€ œ Ÿ é")), QByteArray("\x80 \x9C \x9F \xE9"));
        QCOMPARE(EnWindows1252(QStringLiteral("Dvořák")), QByteArray("Dvor\xE1k"));
        QCOMPARE(EnWindows1252(QString::fromUtf8("Café ☕ 😀\tfin")), QByteArray("Caf\xE9 ? ? fin"));
        etats::LigneFiscale l{
            "6064",
            QString::fromUtf8("Fournitures 😀😀 ☕ Łódź ŒUVRE — « frais » € très longues à couper"),
            Euros(1),
            Euros(2),
            Euros(3),
            Euros(4),
            Euros(5)};
        QString erreur;
        const QByteArray e = fiscal::Enregistrement(l, QLatin1Char(','), &erreur);
        QCOMPARE(e.size(), 125);
        QCOMPARE(e.mid(8, 35), QByteArray("Fournitures ?? ? L\xF3"
                                          "dz \x8CUVRE \x97 \xAB fra"));
        QCOMPARE(e.mid(107, 16), QByteArray("            5,00"));
    }

    void montantTropGrand_refuse() {
        etats::LigneFiscale l{"512", "Banque", Montant::depuisUnites(123456789012345), {}, {},
                              {},    {}};
        QString erreur;
        QCOMPARE(fiscal::Enregistrement(l, QLatin1Char(','), &erreur), QByteArray());
        QVERIFY(erreur.contains(QStringLiteral("trop grand")));
        QVERIFY(erreur.contains(QStringLiteral("512")));
        // Le plus grand qui tient : seize caractères, signe compris.
        l.soldeAN = -Montant::depuisUnites(999999999999);
        QCOMPARE(fiscal::Enregistrement(l, QLatin1Char(','), &erreur).mid(43, 16),
                 QByteArray("-999999999999,00"));
    }

    // Dossier impossible (absent, ou un fichier à sa place) : faux et rien d'écrit ; un
    // fichier du même nom est remplacé en entier.
    void ecriture_entiereOuRien() {
        const QString chemin = dossier->Fichier("liaison.txt");
        QVERIFY(EcrireFichierEntier(chemin, "ancien"));
        QVERIFY(EcrireFichierEntier(chemin, "nouveau"));
        QCOMPARE(essai::LireFichier(chemin), QByteArray("nouveau"));
        QVERIFY(!EcrireFichierEntier(dossier->Fichier("absent/liaison.txt"), "x"));
        QVERIFY(!QFile::exists(dossier->Fichier("absent/liaison.txt")));
        QVERIFY(!EcrireFichierEntier(chemin + "/liaison.txt", "x"));
        QCOMPARE(essai::LireFichier(chemin), QByteArray("nouveau"));
        QCOMPARE(QDir(dossier->Chemin()).entryList({"liaison*"}, QDir::Files),
                 QStringList{"liaison.txt"});
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestFiscalDonnees test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_fiscal_donnees.moc"
