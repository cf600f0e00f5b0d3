#include "consultation/DetailCp.h"

#include "consultation/Export.h"
#include "consultation/LignesCompte.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui_DetailCp.h"

namespace ecran {

DetailCp::DetailCp(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::DetailCp>()) {
    FixerContexteAide(14);
    ui->setupUi(this);
    ui->Tree1->FixerColonnes(TitresLignesCompte());
    const int largeurs[] = {70, 90, 280, 110, 110, 120};
    for (int c = 0; c < 6; ++c)
        ui->Tree1->FixerLargeurColonne(c, largeurs[c]);
    connect(ui->Command1, &QPushButton::clicked, this, &DetailCp::Command1_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &DetailCp::Command3_Click);
    Form_Load();
}

DetailCp::~DetailCp() = default;

void DetailCp::Form_Load() {
    numero = session().CompteChoisi.trimmed();
    table::Compte c;
    LireCompte(CleCourante(), numero, c);
    const QString libelle = c.LibCpt.trimmed();
    setWindowTitle(QStringLiteral("Détail du compte ") + numero + QStringLiteral(" ") + libelle);
    ui->Label1->setText(numero + QStringLiteral("   ") + libelle);
    nomExport = numero + QLatin1Char('-') + libelle;
    AfficherLignesCompte(ui->Tree1, LireLignesCompte(CleCourante(), numero, 0, c.Sde));
}

void DetailCp::Command1_Click() {
    Retour();
}

void DetailCp::Command3_Click() {
    const QString separateur = SeparateurListe();
    const QString fichier = ChoisirFichierExport(nomExport + QStringLiteral(".csv"));
    if (fichier.isEmpty()) return;
    table::Compte c;
    LireCompte(CleCourante(), numero, c);
    FichierCsv csv(fichier, separateur);
    ExporterLignesCompte(csv, LireLignesCompte(CleCourante(), numero, 0, c.Sde));
    csv.Fermer();
    TerminerExport(fichier, PhraseExportCompte(nomExport, fichier), QuestionExportCompte());
}

} // namespace ecran
