// Reprise d'une comptabilité depuis un fichier des écritures comptables : un fichier d'un
// autre logiciel écrit ici à la main (journaux à lui, comptes sur huit chiffres, tiers en
// comptes auxiliaires), les journaux proposés, les dates, chaque refus, l'aller-retour d'une
// année générée (export, reprise, export : les deux fichiers identiques), l'annulation et
// l'échec qui ne laissent rien, l'écran de reprise et son ouverture depuis la création d'une
// société.
#include "support/BancPannes.h"
#include "support/Captures.h"
#include "support/DossierEssai.h"
#include "support/GestesGrille.h"
#include "support/LivresEssai.h"
#include "support/PiloteModal.h"

#include "Generateur.h"
#include "companies/CreSociete.h"
#include "fec/EcritureFec.h"
#include "fec/ImportFEC.h"
#include "fec/LectureFec.h"
#include "fec/RepriseFec.h"
#include "posting/Verification.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Grille.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <map>
#include <stdexcept>

using ui::Reponse;

namespace {

const char* const Entete = "JournalCode;JournalLib;EcritureNum;EcritureDate;CompteNum;CompteLib;"
                           "CompAuxNum;CompAuxLib;PieceRef;PieceDate;EcritureLib;Debit;Credit;"
                           "EcritureLet;DateLet;ValidDate;Montantdevise;Idevise";

// Un fichier fait de lignes dont les champs sont séparés ici par « ; », remis en
// tabulations, lignes finies par CR LF.
QByteArray Fichier(const QStringList& lignes) {
    QStringList tout{QString::fromLatin1(Entete)};
    tout += lignes;
    return tout.join(QStringLiteral("\r\n")).replace(QLatin1Char(';'), QLatin1Char('\t')).toUtf8();
}

// Une ligne : journal, numéro, date, compte, libellé, auxiliaire, libellé auxiliaire,
// libellé d'écriture, débit, crédit.
QString L(const QString& journal, int numero, const QString& date, const QString& compte,
          const QString& libCompte, const QString& aux, const QString& libAux,
          const QString& libelle, const QString& debit, const QString& credit) {
    return QStringList{journal,
                       journal + " lib",
                       QString::number(numero),
                       date,
                       compte,
                       libCompte,
                       aux,
                       libAux,
                       "P" + QString::number(numero),
                       date,
                       libelle,
                       debit,
                       credit,
                       "",
                       "",
                       date,
                       "",
                       ""}
        .join(';');
}

// Le fichier d'un autre logiciel : exercice de juillet à juin, report à nouveau, ventes,
// achats, banque, opérations diverses.
QByteArray FichierEtranger() {
    return Fichier({
        L("RAN", 1, "20240701", "51200000", "Banque", "", "", "Report", "5000,00", "0,00"),
        L("RAN", 1, "20240701", "411000", "Clients", "DUPONT", "Dupont SA", "Report", "1000,00",
          "0,00"),
        L("RAN", 1, "20240701", "10100000", "Capital", "", "", "Report", "0,00", "6000,00"),
        L("VT", 2, "20240705", "411000", "Clients", "DUPONT", "Dupont SA", "Facture F001",
          "1200,00", "0,00"),
        L("VT", 2, "20240705", "70600000", "Prestations", "", "", "Facture F001", "0,00",
          "1000,00"),
        L("VT", 2, "20240705", "44571000", "TVA collectée", "", "", "Facture F001", "0,00",
          "200,00"),
        L("VT", 3, "20240710", "411000", "Clients", "CLIENT000123", "Martin et fils",
          "Facture F002", "600,00", "0,00"),
        L("VT", 3, "20240710", "70600000", "Prestations", "", "", "Facture F002", "0,00", "500,00"),
        L("VT", 3, "20240710", "44571000", "TVA collectée", "", "", "Facture F002", "0,00",
          "100,00"),
        L("AC", 4, "20240712", "60100000", "Achats de matières", "", "", "Bois", "300,00", "0,00"),
        L("AC", 4, "20240712", "44566000", "TVA déductible", "", "", "Bois", "60,00", "0,00"),
        L("AC", 4, "20240712", "401000", "Fournisseurs", "00042", "Bois du Jura", "Bois", "0,00",
          "360,00"),
        L("BQ", 5, "20240720", "51200000", "Banque", "", "", "Règlement Dupont", "1200,00", "0,00"),
        L("BQ", 5, "20240720", "411000", "Clients", "DUPONT", "Dupont SA", "Règlement Dupont",
          "0,00", "1200,00"),
        L("OD", 6, "20240731", "64100000", "Salaires", "", "", "Salaires de juillet", "1500,00",
          "0,00"),
        L("OD", 6, "20240731", "42100000", "Personnel", "", "", "Salaires de juillet", "0,00",
          "1500,00"),
    });
}

QHash<QString, QString> Proposes(const fec::FichierLu& f) {
    QHash<QString, QString> j;
    for (const fec::JournalDuFichier& x : fec::JournauxDuFichier(f))
        j.insert(x.code, x.propose);
    return j;
}

fec::Parametres ParametresDe(const fec::FichierLu& f, const QString& nom,
                             const QString& nomFichier = QString()) {
    fec::Parametres p;
    p.nom = nom;
    fec::DatesProposees(f, nomFichier, p.debut, p.fin);
    p.journaux = Proposes(f);
    return p;
}

int Societes() {
    return essai::Compter("SELECT count(*) FROM Societe");
}

// Solde d'un compte en débit moins crédit (le solde rangé l'est du côté naturel du compte).
Montant SoldeDebiteur(const QString& cle, const QString& numero) {
    table::Compte c;
    if (!LireCompte(cle, numero, c)) return Montant::depuisCentimes(999999999);
    return c.ErCpt.trimmed().startsWith(QLatin1Char('R')) ? -c.Solde : c.Solde;
}

} // namespace

class TestFecReprise : public QObject {
    Q_OBJECT
    support::DossierEssai dossier;
    QString cleGeneree;

    // Met la session sur un exercice repris pour y lire ses livres.
    static void Ouvrir(int numSoc, int annee) {
        session().NumSocCourante = static_cast<std::int16_t>(numSoc);
        session().ExerciceCourant = static_cast<std::int16_t>(annee);
    }

private slots:
    void initTestCase() {
        generateur::GenererPuisOuvrir(dossier.Chemin(), 2500, 20, 6);
        cleGeneree = CleCourante();
    }
    void init() {
        Ouvrir(generateur::NumSoc, generateur::Exercice);
        ui::ViderJournalBoites();
    }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        ui::OublierReponsesDialogues();
    }
    void cleanupTestCase() { FermerBase(); }

    void journauxProposes_selonLesComptes() {
        const fec::FichierLu f = fec::LireFec(FichierEtranger());
        QCOMPARE(f.refus, QStringList());
        const std::vector<fec::JournalDuFichier> j = fec::JournauxDuFichier(f);
        QCOMPARE(j.size(), size_t(5));
        const QStringList codes{j[0].code, j[1].code, j[2].code, j[3].code, j[4].code};
        QCOMPARE(codes, (QStringList{"RAN", "VT", "AC", "BQ", "OD"}));
        const QStringList proposes{j[0].propose, j[1].propose, j[2].propose, j[3].propose,
                                   j[4].propose};
        QCOMPARE(proposes, (QStringList{"AN", "V", "A", "T", "D"}));
        QCOMPARE(j[1].ecritures, 2);
        QCOMPARE(j[1].libelle, QStringLiteral("VT lib"));
    }

    // Une première écriture datée du premier jour, sur des comptes de bilan, dans un journal
    // qui n'a qu'elle : ce sont les à-nouveaux. Si le journal sert encore après, non.
    void journauxProposes_premiereEcritureOuverture() {
        const QString ouverture1 =
            L("OD", 1, "20240101", "512", "Banque", "", "", "Ouverture", "100,00", "0,00");
        const QString ouverture2 =
            L("OD", 1, "20240101", "101", "Capital", "", "", "Ouverture", "0,00", "100,00");
        const QStringList vente = {
            L("VE", 2, "20240105", "411", "Clients", "", "", "Vente", "12,00", "0,00"),
            L("VE", 2, "20240105", "706", "Ventes", "", "", "Vente", "0,00", "12,00")};
        QCOMPARE(Proposes(fec::LireFec(Fichier(QStringList{ouverture1, ouverture2} + vente)))
                     .value("OD"),
                 QStringLiteral("AN"));
        const QStringList diverse = {
            L("OD", 3, "20240110", "6411", "Salaires", "", "", "Paie", "50,00", "0,00"),
            L("OD", 3, "20240110", "421", "Personnel", "", "", "Paie", "0,00", "50,00")};
        const QStringList diverse4 = {
            L("OD", 4, "20240210", "6411", "Salaires", "", "", "Paie", "50,00", "0,00"),
            L("OD", 4, "20240210", "421", "Personnel", "", "", "Paie", "0,00", "50,00")};
        QCOMPARE(Proposes(fec::LireFec(Fichier(QStringList{ouverture1, ouverture2} + vente +
                                               diverse + diverse4)))
                     .value("OD"),
                 QStringLiteral("D"));
        // Un code de Maroval reste lui-même ; AN, ANO, OUV vont aux à-nouveaux.
        const QStringList codes = {
            L("ANO", 1, "20240101", "512", "Banque", "", "", "x", "1,00", "0,00"),
            L("ANO", 1, "20240101", "101", "Capital", "", "", "x", "0,00", "1,00"),
            L("I", 2, "20240131", "6411", "Salaires", "", "", "x", "1,00", "0,00"),
            L("I", 2, "20240131", "421", "Personnel", "", "", "x", "0,00", "1,00")};
        const QHash<QString, QString> p = Proposes(fec::LireFec(Fichier(codes)));
        QCOMPARE(p.value("ANO"), QStringLiteral("AN"));
        QCOMPARE(p.value("I"), QStringLiteral("I"));
    }

    void datesProposees() {
        const fec::FichierLu f = fec::LireFec(FichierEtranger());
        QString debut, fin;
        fec::DatesProposees(f, "123456782FEC20250630.txt", debut, fin);
        QCOMPARE(debut, QStringLiteral("20240701"));
        QCOMPARE(fin, QStringLiteral("20250630"));
        // Sans date dans le nom : douze mois.
        fec::DatesProposees(f, "export.txt", debut, fin);
        QCOMPARE(fin, QStringLiteral("20250630"));
        // Un exercice de dix-huit mois, que le nom annonce.
        fec::DatesProposees(f, "123456782FEC20251231.txt", debut, fin);
        QCOMPARE(fin, QStringLiteral("20251231"));
        // Une date du nom avant la dernière écriture n'est pas crue.
        fec::DatesProposees(f, "123456782FEC20240715.txt", debut, fin);
        QCOMPARE(fin, QStringLiteral("20250630"));
    }

    void etranger_reprisEnEntier() {
        const fec::FichierLu f = fec::LireFec(FichierEtranger());
        const int avant = Societes();
        const fec::Resultat r =
            fec::ReprendreFec(f, ParametresDe(f, "Menuiserie Martin", "123456782FEC20250630"));
        QCOMPARE(r.erreur, QString());
        QVERIFY(!r.annulee);
        QCOMPARE(Societes(), avant + 1);
        QCOMPARE(r.annee, 2024);
        QCOMPARE(r.ecritures, 5);
        QCOMPARE(r.lignes, 13);
        // La session est rendue telle qu'elle était.
        QCOMPARE(CleCourante(), cleGeneree);

        const QString cle = CleExercice(r.numSoc, r.annee);
        table::Societe s;
        QVERIFY(LireSociete(r.numSoc, s));
        QCOMPARE(s.Nom.trimmed(), QStringLiteral("Menuiserie Martin"));
        table::Constante k;
        QVERIFY(LireConstante(cle, k));
        QCOMPARE(k.DateDebut.trimmed(), QStringLiteral("20240701"));
        QCOMPARE(k.DateFin.trimmed(), QStringLiteral("20250630"));
        QVERIFY(k.OuvertureClos);
        QCOMPARE(k.LastNumEcrit, 13.0);
        QCOMPARE(k.SDE1, essai::Euros(6000));
        QCOMPARE(k.SDR1, essai::Euros(6000));

        // Les tiers : l'auxiliaire précédé de 41 ou 401, ou un numéro fait ici s'il est trop
        // long ; libellé de l'auxiliaire, fonction de client ou de fournisseur.
        const QList<std::tuple<QString, QString, int>> tiers = {{"41DUPONT", "Dupont SA", 170},
                                                                {"41X00001", "Martin et fils", 170},
                                                                {"40100042", "Bois du Jura", 160}};
        for (const auto& [numero, libelle, menu] : tiers) {
            table::Compte c;
            QVERIFY2(LireCompte(cle, numero, c), qPrintable(numero));
            QCOMPARE(c.LibCpt.trimmed(), libelle);
            QCOMPARE(int(c.Menu), menu);
        }
        table::Compte banque;
        QVERIFY(LireCompte(cle, "51200000", banque));
        QCOMPARE(banque.LibCpt.trimmed(), QStringLiteral("Banque"));
        QCOMPARE(banque.Sde, essai::Euros(5000));

        // Chaque compte : le solde égale la somme que le fichier donne.
        const std::map<QString, Montant> attendus = {
            {"51200000", essai::Euros(6200)},  {"41DUPONT", essai::Euros(1000)},
            {"41X00001", essai::Euros(600)},   {"410", essai::Euros(1600)},
            {"10100000", essai::Euros(-6000)}, {"70600000", essai::Euros(-1500)},
            {"44571000", essai::Euros(-300)},  {"60100000", essai::Euros(300)},
            {"44566000", essai::Euros(60)},    {"40100042", essai::Euros(-360)},
            {"400", essai::Euros(-360)},       {"64100000", essai::Euros(1500)},
            {"42100000", essai::Euros(-1500)}};
        for (const auto& [numero, solde] : attendus)
            QVERIFY2(SoldeDebiteur(cle, numero) == solde,
                     qPrintable(numero + " : " + FormatFixe(SoldeDebiteur(cle, numero))));

        // Chaque écriture dans son journal de Maroval, dans l'ordre du fichier.
        QCOMPARE(
            essai::Compter("SELECT count(*) FROM Ecriture WHERE CleCpt=? AND Journal='V'", cle), 6);
        SQLite::Statement journaux(Base(), "SELECT group_concat(Journal, '') FROM (SELECT "
                                           "Journal FROM Ecriture WHERE CleCpt=? AND Fin <> 0 "
                                           "ORDER BY NumEcr)");
        journaux.bind(1, cle.toStdString());
        QVERIFY(journaux.executeStep());
        QCOMPARE(QString::fromUtf8(journaux.getColumn(0).getText()), QStringLiteral("VVATD"));
        Ouvrir(r.numSoc, r.annee);
        QVERIFY(Verification());
    }

    void refus_chacunSaLigne() {
        const int avant = Societes();
        const auto refus = [](const QStringList& lignes, const QString& nom = "Essai") {
            const fec::FichierLu f = fec::LireFec(Fichier(lignes));
            if (!f.refus.isEmpty()) return f.refus;
            return fec::ControlerReprise(f, ParametresDe(f, nom));
        };
        const QString banque =
            L("OD", 1, "20240105", "512", "Banque", "", "", "x", "10,00", "0,00");
        // Un compte hors du plan (classe 8).
        QCOMPARE(refus({banque, L("OD", 1, "20240105", "80100000", "Engagements", "", "", "x",
                                  "0,00", "10,00")}),
                 QStringList{"Ligne 3 : le compte 80100000 n'a pas de place dans le plan "
                             "comptable de Maroval (comptes de 100 à 799)."});
        // Un compte trop long.
        QCOMPARE(refus({banque, L("OD", 1, "20240105", "706000001", "Ventes", "", "", "x", "0,00",
                                  "10,00")}),
                 QStringList{"Ligne 3 : le compte 706000001 a plus de huit caractères ; Maroval "
                             "ne peut pas le reprendre."});
        // Des à-nouveaux sur un compte de produits.
        QCOMPARE(refus({L("AN", 1, "20240101", "512", "Banque", "", "", "x", "10,00", "0,00"),
                        L("AN", 1, "20240101", "706", "Ventes", "", "", "x", "0,00", "10,00")}),
                 QStringList{"Ligne 3 : les à-nouveaux portent sur le compte 706, qui n'est pas "
                             "un compte de bilan."});
        // Sans nom.
        QCOMPARE(
            refus({banque, L("OD", 1, "20240105", "101", "Capital", "", "", "x", "0,00", "10,00")},
                  " "),
            QStringList{"Vous devez entrer un nom."});
        // Une écriture hors des dates choisies.
        {
            const fec::FichierLu f = fec::LireFec(Fichier(
                {banque, L("OD", 1, "20240105", "101", "Capital", "", "", "x", "0,00", "10,00"),
                 L("OD", 2, "20240301", "512", "Banque", "", "", "x", "1,00", "0,00"),
                 L("OD", 2, "20240301", "101", "Capital", "", "", "x", "0,00", "1,00")}));
            fec::Parametres p = ParametresDe(f, "Essai");
            p.fin = "20240229";
            QCOMPARE(fec::ControlerReprise(f, p),
                     QStringList{"Ligne 4 : l'écriture du 01/03/2024 tombe hors de l'exercice du "
                                 "01/01/2024 au 29/02/2024."});
            p.fin = "20231231";
            QCOMPARE(fec::ControlerReprise(f, p),
                     QStringList{"L'exercice finit avant de commencer."});
            // Un journal sans journal de Maroval.
            p = ParametresDe(f, "Essai");
            p.journaux.insert("OD", "Z");
            QCOMPARE(fec::ControlerReprise(f, p),
                     QStringList{"Le journal OD du fichier n'a pas de journal de Maroval."});
            // Refusée, la reprise n'écrit rien.
            const fec::Resultat r = fec::ReprendreFec(f, p);
            QCOMPARE(r.erreur, QStringLiteral("Le journal OD du fichier n'a pas de journal de "
                                              "Maroval."));
            QCOMPARE(r.numSoc, 0);
        }
        QCOMPARE(Societes(), avant);
    }

    // Un numéro de plus de huit caractères perd ses zéros de fin et garde son libellé.
    void compteTropLong_perdSesZerosDeFin() {
        const fec::FichierLu f = fec::LireFec(
            Fichier({L("OD", 1, "20240105", "60110000000", "Achats de farine", "", "", "x", "10,00",
                       "0,00"),
                     L("OD", 1, "20240105", "512", "Banque", "", "", "x", "0,00", "10,00")}));
        QCOMPARE(f.refus, QStringList());
        const fec::Resultat r = fec::ReprendreFec(f, ParametresDe(f, "Zéros"));
        QCOMPARE(r.erreur, QString());
        table::Compte c;
        QVERIFY(LireCompte(CleExercice(r.numSoc, r.annee), "60110000", c));
        QCOMPARE(c.LibCpt.trimmed(), QStringLiteral("Achats de farine"));
        QCOMPARE(SoldeDebiteur(CleExercice(r.numSoc, r.annee), "60110000"), essai::Euros(10));
    }

    void annulation_rienNeReste() {
        const fec::FichierLu f = fec::LireFec(FichierEtranger());
        const QString avant = support::EmpreinteLivres();
        int appels = 0;
        const fec::Resultat r = fec::ReprendreFec(f, ParametresDe(f, "Annulée"),
                                                  [&](int, int) { return ++appels < 3; });
        QVERIFY(r.annulee);
        QCOMPARE(appels, 3);
        QCOMPARE(r.numSoc, 0);
        QCOMPARE(support::EmpreinteLivres(), avant);
        QCOMPARE(essai::Compter("SELECT count(*) FROM wSaisie"), 0);
        QCOMPARE(CleCourante(), cleGeneree);
    }

    void echec_rienNeReste() {
        const fec::FichierLu f = fec::LireFec(FichierEtranger());
        const QString avant = support::EmpreinteLivres();
        const fec::Resultat r =
            fec::ReprendreFec(f, ParametresDe(f, "En panne"), [&](int fait, int) -> bool {
                if (fait == 2) throw std::runtime_error("disque plein");
                return true;
            });
        QVERIFY(!r.annulee);
        QCOMPARE(r.erreur, QStringLiteral("La reprise a échoué : disque plein\nRien n'a été "
                                          "gardé."));
        QCOMPARE(support::EmpreinteLivres(), avant);
    }

    // Un arrêt brutal au milieu de la reprise : la base telle qu'elle est à cet instant,
    // rouverte comme au démarrage, perd la société à moitié reprise et redevient celle d'avant.
    void arretBrutal_societeRetireeAuRedemarrage() {
        const fec::FichierLu f = fec::LireFec(FichierEtranger());
        const QString avant = support::EmpreinteLivres();
        support::DossierEssai apres;
        const QString instantane = apres.Fichier("maroval.mdb");
        const fec::Resultat r = fec::ReprendreFec(f, ParametresDe(f, "Coupée"), [&](int fait, int) {
            if (fait == 3) Base().backup(instantane.toUtf8().constData(), SQLite::Database::Save);
            return true;
        });
        QCOMPARE(r.erreur, QString());
        // Reprise finie : plus rien à retirer.
        QCOMPARE(fec::RetirerReprisesInterrompues(), QStringList());
        FermerBase();
        OuvrirBase(apres.Chemin());
        QCOMPARE(essai::Compter("SELECT count(*) FROM RepriseEnCours"), 1);
        QCOMPARE(fec::RetirerReprisesInterrompues(), QStringList{"Coupée"});
        QCOMPARE(support::EmpreinteLivres(), avant);
        QCOMPARE(essai::Compter("SELECT count(*) FROM RepriseEnCours"), 0);
        FermerBase();
        OuvrirBase(dossier.Chemin());
    }

    // Une année générée : exportée, reprise dans une nouvelle société, exportée encore. Les
    // deux fichiers sont identiques ; chaque compte a les mêmes soldes.
    void allerRetour_anneeGeneree() {
        fec::Totaux totaux;
        QString erreur;
        const QByteArray premier = fec::FichierFec(cleGeneree, &totaux, &erreur);
        QCOMPARE(erreur, QString());
        QVERIFY(totaux.lignes > 2000);
        const fec::FichierLu f = fec::LireFec(premier);
        QCOMPARE(f.refus, QStringList());
        const fec::Parametres p = ParametresDe(f, "Reprise", "732829320FEC20241231.txt");
        QCOMPARE(p.debut, QStringLiteral("20240101"));
        QCOMPARE(p.fin, QStringLiteral("20241231"));
        QCOMPARE(p.journaux.value("AN"), QStringLiteral("AN"));
        int dernier = 0, appels = 0;
        const fec::Resultat r = fec::ReprendreFec(f, p, [&](int fait, int total) {
            // La jauge avance d'une écriture à la fois jusqu'au bout.
            if (fait != dernier + 1 || fait > total) return false;
            dernier = fait;
            ++appels;
            return true;
        });
        QCOMPARE(r.erreur, QString());
        QVERIFY(!r.annulee);
        QCOMPARE(r.ecritures, totaux.ecritures - 1);
        QCOMPARE(f.ecritures.front().journalCode, QStringLiteral("AN"));
        QCOMPARE(r.lignes, totaux.lignes - int(f.ecritures.front().lignes.size()));
        QCOMPARE(appels, r.ecritures);
        const QString cle = CleExercice(r.numSoc, r.annee);
        fec::Totaux encore;
        const QByteArray second = fec::FichierFec(cle, &encore, &erreur);
        QCOMPARE(erreur, QString());
        QCOMPARE(encore.lignes, totaux.lignes);
        QCOMPARE(encore.debit, totaux.debit);
        if (second != premier) {
            const QList<QByteArray> a = premier.split('\n'), b = second.split('\n');
            for (int i = 0; i < std::min(a.size(), b.size()); ++i)
                QVERIFY2(a[i] == b[i],
                         qPrintable("ligne " + QString::number(i + 1) + " : " +
                                    QString::fromUtf8(a[i]) + " / " + QString::fromUtf8(b[i])));
            QCOMPARE(a.size(), b.size());
        }
        // Chaque compte de l'année d'origine qui a bougé : mêmes soldes de début et de fin.
        SQLite::Statement q(Base(), "SELECT a.NumCpt FROM Compte a WHERE a.CleCpt = ? AND "
                                    "(a.Sde <> 0 OR a.CumD <> 0 OR a.CumC <> 0) AND NOT EXISTS "
                                    "(SELECT 1 FROM Compte b WHERE b.CleCpt = ? AND b.NumCpt = "
                                    "a.NumCpt AND b.Sde = a.Sde AND b.Solde = a.Solde AND b.CumD "
                                    "= a.CumD AND b.CumC = a.CumC)");
        q.bind(1, cleGeneree.toStdString());
        q.bind(2, cle.toStdString());
        QStringList differents;
        while (q.executeStep())
            differents << QString::fromUtf8(q.getColumn(0).getText());
        QCOMPARE(differents, QStringList());
        Ouvrir(r.numSoc, r.annee);
        QVERIFY(Verification());
    }

    void ecran_fichierRefuse() {
        const QString chemin = dossier.Fichier("refuse.txt");
        QFile sortie(chemin);
        QVERIFY(sortie.open(QIODevice::WriteOnly));
        sortie.write(
            Fichier({L("OD", 1, "20240105", "512", "Banque", "", "", "x", "10,00", "0,00"),
                     L("OD", 1, "2024-01-05", "101", "Capital", "", "", "x", "0,00", "10,00")}));
        sortie.close();
        ecran::ImportFEC e;
        QCOMPARE(e.windowTitle(), QStringLiteral("Reprendre une comptabilité (FEC)"));
        ui::RepondreFichier(chemin);
        QTest::mouseClick(e.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        auto* liste = e.findChild<QListWidget*>("List1");
        QVERIFY(liste->count() >= 1);
        QVERIFY2(liste->item(0)->text().startsWith("Ligne 3 : "),
                 qPrintable(liste->item(0)->text()));
        QVERIFY(!e.findChild<QPushButton*>("Command2")->isEnabled());
        QVERIFY(e.findChild<QLabel*>("Label2")->text().contains("ne peut pas être repris"));
    }

    void ecran_repriseParLesControles() {
        const QString chemin = dossier.Fichier("123456782FEC20250630.txt");
        QFile sortie(chemin);
        QVERIFY(sortie.open(QIODevice::WriteOnly));
        sortie.write(FichierEtranger());
        sortie.close();
        const int avant = Societes();
        ecran::ImportFEC e;
        e.show();
        ui::RepondreFichier(chemin);
        QTest::mouseClick(e.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QCOMPARE(e.findChild<QLabel*>("Label2")->text(),
                 QStringLiteral("123456782FEC20250630.txt : 6 écritures, 16 lignes, du 01/07/2024 "
                                "au 31/07/2024."));
        QCOMPARE(e.findChild<QLineEdit*>("Text2")->text(), QStringLiteral("01/07/2024"));
        QCOMPARE(e.findChild<QLineEdit*>("Text3")->text(), QStringLiteral("30/06/2025"));
        auto* journaux = e.findChild<ui::Grille*>("Tree1");
        QCOMPARE(journaux->NombreLignes(), 5);
        QCOMPARE(journaux->Texte(3, 3), QStringLiteral("Trésorerie"));
        // Le journal BQ part en opérations diverses : choisi dans la liste sous le tableau.
        support::CliquerCellule(journaux, 3, 0);
        auto* choix = e.findChild<QComboBox*>("Combo1");
        QVERIFY(choix->isEnabled());
        QCOMPARE(choix->currentText(), QStringLiteral("Trésorerie"));
        choix->setFocus();
        QTest::keyClick(choix, Qt::Key_Up);
        QCOMPARE(journaux->Texte(3, 3), QStringLiteral("Achats"));
        QTest::keyClick(choix, Qt::Key_Down);
        QTest::keyClick(choix, Qt::Key_Down);
        QCOMPARE(journaux->Texte(3, 3), QStringLiteral("Opérations diverses"));
        // Un nom proposé d'après le SIREN du nom du fichier ; effacé, la reprise le demande.
        auto* nom = e.findChild<QLineEdit*>("Text1");
        QCOMPARE(nom->text(), QStringLiteral("Société 123456782"));
        nom->clear();
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(e.findChild<QPushButton*>("Command2"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites().last(),
                 QStringLiteral("Vous devez entrer un nom.\nRecommencez"));
        support::TaperCaracteres(e.findChild<QLineEdit*>("Text1"), "Ébénisterie Dupré");
        // Pendant la reprise, « Annuler » puis la croix de la fenêtre : chaque fois rien n'est
        // gardé et l'écran reste ouvert.
        auto* annuler = e.findChild<QPushButton*>("Command4");
        QVERIFY(annuler->isHidden());
        auto* jauge = e.findChild<QProgressBar*>("Gauge1");
        for (const bool parLaCroix : {false, true}) {
            // Le geste vient quand la jauge avance : la reprise est en cours.
            bool vu = false, pendant = false;
            const QMetaObject::Connection c =
                connect(jauge, &QProgressBar::valueChanged, &e, [&](int valeur) {
                    if (vu || valeur == 0) return;
                    vu = true;
                    pendant =
                        annuler->isVisible() && !e.findChild<QPushButton*>("Command3")->isEnabled();
                    if (parLaCroix)
                        e.close();
                    else
                        QTest::mouseClick(annuler, Qt::LeftButton);
                });
            ui::RepondreBoite(Reponse::OK);
            QTest::mouseClick(e.findChild<QPushButton*>("Command2"), Qt::LeftButton);
            disconnect(c);
            QVERIFY(vu);
            QVERIFY(pendant);
            QCOMPARE(essai::TextesBoites().last(),
                     QStringLiteral("La reprise est annulée : rien n'a été gardé."));
            QCOMPARE(Societes(), avant);
            QVERIFY(e.isVisible());
            QVERIFY(annuler->isHidden());
        }
        if (!support::DossierCaptures().isEmpty())
            e.grab().save(QDir(support::DossierCaptures()).filePath("ImportFEC.png"));
        QVERIFY(support::ImageDessinee(e.grab().toImage()));
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(e.findChild<QPushButton*>("Command2"), Qt::LeftButton);
        QVERIFY2(essai::TextesBoites().last().startsWith("La comptabilité « Ébénisterie Dupré » "
                                                         "est reprise : "),
                 qPrintable(essai::TextesBoites().last()));
        QCOMPARE(Societes(), avant + 1);
        QVERIFY(e.NumSocCreee() > 0);
        QCOMPARE(e.findChild<QProgressBar*>("Gauge1")->value(), 100);
        const QString cle = CleExercice(e.NumSocCreee(), 2024);
        QCOMPARE(
            essai::Compter("SELECT count(*) FROM Ecriture WHERE CleCpt=? AND Journal='D'", cle), 4);
    }

    // Le fichier choisi, « Importer » suffit : nom, dates et journaux sont proposés.
    void ecran_importerSansRienTaper() {
        const QString chemin = dossier.Fichier("export-compta.txt");
        QFile sortie(chemin);
        QVERIFY(sortie.open(QIODevice::WriteOnly));
        sortie.write(FichierEtranger());
        sortie.close();
        const int avant = Societes();
        ecran::ImportFEC e;
        ui::RepondreFichier(chemin);
        QTest::mouseClick(e.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QCOMPARE(e.findChild<QLineEdit*>("Text1")->text(), QStringLiteral("export-compta"));
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(e.findChild<QPushButton*>("Command2"), Qt::LeftButton);
        QVERIFY2(essai::TextesBoites().last().startsWith(
                     "La comptabilité « export-compta » est reprise : "),
                 qPrintable(essai::TextesBoites().last()));
        QCOMPARE(Societes(), avant + 1);
        table::Societe s;
        QVERIFY(LireSociete(e.NumSocCreee(), s));
        QCOMPARE(s.Nom.trimmed(), QStringLiteral("export-compta"));
    }

    // Depuis la création d'une société, le bouton ouvre la reprise ; fermée sans rien faire,
    // la création reste ouverte.
    void ecran_depuisCreSociete() {
        session().ModeCreSociete = 1;
        ecran::CreSociete creation;
        auto* bouton = creation.findChild<QPushButton*>("Command7");
        QVERIFY(bouton);
        QCOMPARE(bouton->text(), QStringLiteral("Reprendre une comptabilité (FEC)"));
        support::PiloteModal pilote;
        pilote.Attendre("CreSociete", support::Cliquer("Command7"))
            .Attendre("ImportFEC", support::Cliquer("Command3"))
            .Attendre("CreSociete", support::Cliquer("Command2"));
        pilote.Demarrer();
        creation.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(creation.NumSocCreee(), 0);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestFecReprise test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_fec_reprise.moc"
