// Pannes du disque pendant une sauvegarde et une restauration : chaque accès échoue tour à
// tour ; au redémarrage, la base est intègre, les livres se vérifient et sont ceux d'avant
// ou d'après, et une archive laissée par la sauvegarde est toujours entière.
#include "support/BancPannes.h"
#include "support/DisqueFautif.h"
#include "support/DossierEssai.h"
#include "support/LivresEssai.h"

#include "backup/Backup.h"
#include "backup/Restauration.h"
#include "backup/ZipBiblio.h"
#include "store/Base.h"
#include "store/ControleBase.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>
#include <SQLiteCpp/Database.h>
#include <cstdio>

using namespace support;

class TestPannesSauvegarde : public QObject {
    Q_OBJECT
private slots:
    void init() { InstallerDisqueFautif(); }

    // La sauvegarde par l'écran : base fermée, archive, base rouverte. Une archive qui
    // existe après la panne se restaure en une base saine, aux livres d'avant.
    void sauvegarde() {
        DossierEssai essai;
        QTemporaryDir modele, archives;
        essai::OuvrirLivres(modele.path());
        essai::Vente(essai::Euros(100), essai::Euros(20));
        FermerBase();
        const QString archive = archives.filePath(QStringLiteral("panne.sav"));
        int archivesControlees = 0;

        Scenario s;
        s.modele = modele.path();
        s.changeLesLivres = false;
        s.ouvrir = [](const QString& d) { essai::ReprendreLivres(d); };
        // Une vente encore dans le journal de la base : la sauvegarde doit l'y prendre.
        s.preparer = [&] {
            QFile::remove(archive);
            Base().exec("PRAGMA wal_autocheckpoint=0");
            essai::Vente(essai::Euros(50), essai::Euros(10));
        };
        s.operation = [&] {
            for (int i = 0; i < 4; ++i)
                ui::RepondreBoite(ui::Reponse::OK);
            ui::RepondreFichier(archive);
            ecran::Backup ecran;
            ecran.Command2_Click();
        };
        s.controle = [&]() -> QString {
            if (!QFile::exists(archive)) return QString();
            QTemporaryDir extrait;
            if (!UnZip(archive, QStringLiteral("maroval.mdb"), extrait.path()))
                return QStringLiteral("archive illisible : ") + MessageZip();
            const QString base = extrait.filePath(QStringLiteral("maroval.mdb"));
            const DiagnosticBase d = ControlerBase(base, true);
            if (d.etat != EtatBase::Saine) return QStringLiteral("archive abîmée : ") + d.raison;
            SQLite::Database db(base.toStdString(), SQLite::OPEN_READONLY);
            if (EmpreinteLivres(db) != EmpreinteLivres())
                return QStringLiteral("l'archive n'a pas les livres de la base");
            ++archivesControlees;
            return QString();
        };
        ExigerBilan("Sauvegarde", EssayerPannes(s), false);
        // Des pannes tombées après l'archive (réouverture de la base) : elle a été relue.
        std::printf("Archives laissées par une sauvegarde en panne et relues : %d\n",
                    archivesControlees - 1);
        QVERIFY(archivesControlees > 1);
    }

    void restauration() {
        DossierEssai essai;
        QTemporaryDir modele, archives;
        essai::OuvrirLivres(modele.path());
        essai::Vente(essai::Euros(100), essai::Euros(20));
        FermerBase();
        // L'archive porte une vente de plus que la base en place.
        const QString archive = archives.filePath(QStringLiteral("plus.sav"));
        {
            QTemporaryDir autre;
            for (const QString& nom :
                 {QStringLiteral("maroval.mdb"), QStringLiteral("maroval.ini")})
                QFile::copy(QDir(modele.path()).filePath(nom), QDir(autre.path()).filePath(nom));
            essai::ReprendreLivres(autre.path());
            essai::Vente(essai::Euros(70), essai::Euros(14));
            FermerBase();
            Zipper(autre.path(), QStringLiteral("maroval.mdb"), archive);
        }

        Scenario s;
        s.modele = modele.path();
        s.ouvrir = [](const QString& d) { essai::ReprendreLivres(d); };
        s.operation = [&] {
            ui::RepondreBoite(ui::Reponse::OK);
            RestaurerArchive(archive);
        };
        ExigerBilan("Restauration", EssayerPannes(s), true);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPannesSauvegarde test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_pannes_sauvegarde.moc"
