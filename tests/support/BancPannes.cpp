#include "support/BancPannes.h"

#include "support/DisqueFautif.h"
#include "support/SessionEssai.h"

#include "posting/Securite.h"
#include "posting/Verification.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/ControleBase.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Fin.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <cstdio>

namespace support {

namespace {

void CopierDossier(const QString& depuis, const QString& vers) {
    QDir(vers).removeRecursively();
    QDir().mkpath(vers);
    for (const QString& nom : QDir(depuis).entryList(QDir::Files | QDir::Hidden)) {
        QFile::copy(QDir(depuis).filePath(nom), QDir(vers).filePath(nom));
        QFile::setPermissions(QDir(vers).filePath(nom),
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
}

// Fin brutale après la panne : ce que fait la fin du programme (fermeture de la base, qui
// peut elle-même rencontrer la panne), puis le disque revient.
bool FinApresPanne() {
    try {
        FermerBase();
    } catch (...) {
    }
    const bool survenue = PanneSurvenue();
    RemettreDisqueAZero();
    ui::OublierReponsesBoite();
    ui::OublierReponsesDialogues();
    ui::ViderJournalBoites();
    return survenue;
}

} // namespace

QString EmpreinteLivres() {
    return EmpreinteLivres(Base());
}

QString EmpreinteLivres(SQLite::Database& base) {
    QStringList sortie;
    SQLite::Statement tables(base, "SELECT name FROM sqlite_master WHERE type='table' AND "
                                   "lower(name) NOT LIKE 'w%' AND lower(name) <> 'jourcent' "
                                   "ORDER BY name");
    while (tables.executeStep()) {
        const std::string nom = tables.getColumn(0).getString();
        QStringList lignes;
        SQLite::Statement q(base, "SELECT * FROM \"" + nom + "\"");
        while (q.executeStep()) {
            QStringList valeurs;
            for (int i = 0; i < q.getColumnCount(); ++i)
                valeurs << (q.getColumn(i).isNull() ? QStringLiteral("<nul>")
                                                    : QString::fromUtf8(q.getColumn(i).getText()));
            lignes << valeurs.join(QLatin1Char('|'));
        }
        lignes.sort();
        sortie << QStringLiteral("== ") + QString::fromStdString(nom) << lignes;
    }
    return sortie.join(QLatin1Char('\n'));
}

QString Redemarrer(const Scenario& scenario, const QString& dossier) {
    const QString chemin = QDir(dossier).filePath(QStringLiteral("maroval.mdb"));
    const DiagnosticBase d = ControlerBase(chemin, true);
    if (d.etat != EtatBase::Saine) return QStringLiteral("base non saine : ") + d.raison;
    scenario.ouvrir(dossier);
    FichierProfil ini(CheminIni());
    const QString marqueur =
        ini.Lire(QStringLiteral("Securite"), QStringLiteral("Erreur"), QStringLiteral("0"));
    // Le démarrage : "1" perd l'écriture commencée, "2" remet les images, "0" purge.
    if (marqueur == QLatin1String("2")) {
        const MarqueurLu m = LireMarqueur();
        RestituerImages(m.cle, m.derNum);
    } else {
        PurgerCleTemporaire();
    }
    ini.Ecrire(QStringLiteral("Securite"), QStringLiteral("Erreur"), QStringLiteral("0"));
    SQLite::Statement integrite(Base(), "PRAGMA integrity_check");
    integrite.executeStep();
    if (integrite.getColumn(0).getString() != "ok")
        return QStringLiteral("intégrité après reprise : ") +
               QString::fromStdString(integrite.getColumn(0).getString());
    if (!Verification()) return QStringLiteral("la vérification des livres échoue");
    if (scenario.controle) return scenario.controle();
    return QString();
}

BilanPannes EssayerPannes(const Scenario& scenario) {
    InstallerDisqueFautif();
    BilanPannes bilan;
    QTemporaryDir travail;
    const QString dossier = travail.filePath(QStringLiteral("donnees"));

    // L'état d'avant (préparation faite) et celui d'après, vus par un redémarrage sans panne.
    CopierDossier(scenario.modele, dossier);
    scenario.ouvrir(dossier);
    if (scenario.preparer) scenario.preparer();
    FinApresPanne();
    QString probleme = Redemarrer(scenario, dossier);
    if (!probleme.isEmpty()) {
        bilan.echecs << QStringLiteral("avant l'opération : ") + probleme;
        return bilan;
    }
    const QString avant = EmpreinteLivres();
    FinApresPanne();
    CopierDossier(scenario.modele, dossier);
    scenario.ouvrir(dossier);
    if (scenario.preparer) scenario.preparer();
    RemettreDisqueAZero();
    try {
        scenario.operation();
    } catch (const ui::FinProgramme&) {
    }
    // La fermeture de la fin du programme compte avec l'opération : la recopie du journal
    // dans la base peut elle aussi rencontrer la panne.
    try {
        FermerBase();
    } catch (...) {
    }
    int comptes[3];
    for (Acces a : {Acces::Lecture, Acces::Ecriture, Acces::Synchro})
        comptes[static_cast<int>(a)] = NombreAcces(a);
    FinApresPanne();
    probleme = Redemarrer(scenario, dossier);
    if (!probleme.isEmpty()) {
        bilan.echecs << QStringLiteral("après l'opération sans panne : ") + probleme;
        return bilan;
    }
    const QString apres = EmpreinteLivres();
    FinApresPanne();
    if ((apres == avant) == scenario.changeLesLivres)
        bilan.echecs << (scenario.changeLesLivres
                             ? QStringLiteral("l'opération ne change rien aux livres")
                             : QStringLiteral("l'opération change les livres"));

    for (Acces a : {Acces::Ecriture, Acces::Synchro, Acces::Lecture}) {
        for (int rang = 1; rang <= comptes[static_cast<int>(a)]; ++rang) {
            for (Panne p : {Panne::ErreurDisque, Panne::DisquePlein}) {
                if (p == Panne::DisquePlein && a != Acces::Ecriture) continue;
                for (bool durable : {false, true}) {
                    const QString nom = QStringLiteral("%1 n°%2%3%4")
                                            .arg(NomAcces(a))
                                            .arg(rang)
                                            .arg(p == Panne::DisquePlein ? " (disque plein)" : "")
                                            .arg(durable ? " puis toutes les suivantes" : "");
                    ++bilan.points;
                    CopierDossier(scenario.modele, dossier);
                    scenario.ouvrir(dossier);
                    if (scenario.preparer) scenario.preparer();
                    RemettreDisqueAZero();
                    ArmerPanne(a, rang, p, durable);
                    try {
                        scenario.operation();
                    } catch (...) {
                        // Ce que le gestionnaire de l'erreur d'exécution recevrait.
                    }
                    if (FinApresPanne()) ++bilan.survenues;
                    try {
                        probleme = Redemarrer(scenario, dossier);
                    } catch (const std::exception& e) {
                        probleme = QStringLiteral("redémarrage impossible : ") +
                                   QString::fromUtf8(e.what());
                    }
                    if (probleme.isEmpty()) {
                        const QString etat = EmpreinteLivres();
                        if (etat == avant)
                            ++bilan.etatAvant;
                        else if (etat == apres)
                            ++bilan.etatApres;
                        else
                            probleme = QStringLiteral("livres ni d'avant ni d'après");
                    }
                    if (!probleme.isEmpty()) bilan.echecs << nom + QStringLiteral(" : ") + probleme;
                    FinApresPanne();
                }
            }
        }
    }
    return bilan;
}

void ExigerBilan(const char* operation, const BilanPannes& b, bool deuxIssues) {
    std::printf("%s : %d pannes essayées, %d rencontrées, %d redémarrages sur l'état d'avant, "
                "%d sur celui d'après\n",
                operation, b.points, b.survenues, b.etatAvant, b.etatApres);
    for (const QString& e : b.echecs.mid(0, 10))
        std::printf("  %s\n", qPrintable(e));
    QVERIFY2(b.echecs.isEmpty(), qPrintable(b.echecs.join('\n')));
    QVERIFY(b.points > 10);
    QVERIFY(b.survenues > b.points / 2);
    QVERIFY(b.etatAvant > 0);
    if (deuxIssues) QVERIFY(b.etatApres > 0);
}

} // namespace support
