// Pannes du disque pendant un lettrage automatique de toute une classe et pendant une
// validation du lettrage manuel : après chaque panne, la base est intègre et les lettrages
// sont tous ceux d'avant ou tous ceux d'après, jamais une partie.
#include "EssaiTresor.h"
#include "support/BancPannes.h"
#include "support/DisqueFautif.h"
#include "support/DossierEssai.h"

#include "treasury/DonneesTresor.h"
#include "ui/Application.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace support;

namespace {

// Trois clients, chacun une facture et son règlement, passés par le moteur.
void Modele(const QString& dossier) {
    tresor_essai::Livres(dossier);
    const QList<std::pair<const char*, double>> ventes = {
        {"411001", 120}, {"411002", 60}, {"411003", 36}};
    for (const auto& [client, montant] : ventes) {
        essai::Ecriture("05/03/2024", "V", {{client, "D", montant}, {"707", "C", montant}});
        essai::Ecriture("20/03/2024", "T", {{"512", "D", montant}, {client, "C", montant}});
    }
    FermerBase();
}

} // namespace

class TestPannesLettrage : public QObject {
    Q_OBJECT
private slots:
    void init() { InstallerDisqueFautif(); }

    void lettrageAutomatiqueDesClients() {
        DossierEssai essai;
        QTemporaryDir modele;
        Modele(modele.path());
        Scenario s;
        s.modele = modele.path();
        s.ouvrir = [](const QString& d) { essai::ReprendreLivres(d); };
        s.operation = [] { tresor::LettrerClasse(essai::Cle, tresor::MenuClients, 2024, {}); };
        ExigerBilan("Lettrage automatique des clients", EssayerPannes(s));
    }

    void validationDuLettrageManuel() {
        DossierEssai essai;
        QTemporaryDir modele;
        Modele(modele.path());
        Scenario s;
        s.modele = modele.path();
        s.ouvrir = [](const QString& d) { essai::ReprendreLivres(d); };
        s.operation = [] {
            std::vector<double> lignes;
            SQLite::Statement q(Base(), "SELECT NumEcr FROM Ecriture WHERE CleCpt = '012024' AND "
                                        "NumCptEcr LIKE '411%'");
            while (q.executeStep())
                lignes.push_back(q.getColumn(0).getDouble());
            tresor::Marquer(essai::Cle, lignes, 1);
        };
        ExigerBilan("Validation du lettrage manuel", EssayerPannes(s));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPannesLettrage test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_pannes_lettrage.moc"
