#include "companies/Options.h"

#include "base/Reglages.h"
#include "base/Texte.h"
#include "base/Valeur.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "ui/Boite.h"
#include "ui_Options.h"

#include <QDir>

namespace ecran {

bool EstNumerique(const QString& texte) {
    const QString t = texte.trimmed();
    int i = 0;
    if (i < t.size() && (t[i] == QLatin1Char('+') || t[i] == QLatin1Char('-'))) ++i;
    bool chiffre = false, separateur = false;
    for (; i < t.size(); ++i) {
        if (EstChiffre(t[i])) {
            chiffre = true;
        } else if ((t[i] == QLatin1Char(',') || t[i] == QLatin1Char('.')) && !separateur) {
            separateur = true;
        } else {
            return false;
        }
    }
    return chiffre;
}

Options::Options(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Options>()) {
    FixerContexteAide(23);
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, this, &Options::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Options::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Options::Command3_Click);
    Form_Load();
}

Options::~Options() = default;

void Options::Form_Load() {
    const FichierProfil ini(CheminIni());
    ui->Text2->setText(
        ini.Lire(QStringLiteral("Options"), QStringLiteral("SymbEu"), QStringLiteral("E")));
    ui->Text1->setText(
        ini.Lire(QStringLiteral("Options"), QStringLiteral("NbDecimales"), QStringLiteral("2")));
    ui->TextDisquette->setText(QDir::toNativeSeparators(DossierDisquette()));
    ui->Check1->setChecked(LireReglage(QStringLiteral("Options"), QStringLiteral("Demarrage"),
                                       QStringLiteral("0")) == QStringLiteral("1"));
}

void Options::Command1_Click() {
    if (!EstNumerique(ui->Text1->text())) {
        ui::Boite(QStringLiteral("Votre nombre de décimales doit être exclusivement numérique."),
                  QStringLiteral("Attention"), ui::Icone::Exclamation);
        ui->Text1->setFocus();
        return;
    }
    FichierProfil ini(CheminIni());
    if (!ini.Ecrire(QStringLiteral("Options"), QStringLiteral("SymbEu"), ui->Text2->text()) ||
        !ini.Ecrire(QStringLiteral("Options"), QStringLiteral("NbDecimales"), ui->Text1->text()) ||
        !ini.Ecrire(QStringLiteral("Options"), QStringLiteral("Disquette"),
                    QDir::fromNativeSeparators(ui->TextDisquette->text().trimmed()))) {
        ui::Boite(QStringLiteral("Maroval ne peut pas enregistrer vos options dans le fichier :\n"
                                 "%1\n\nVérifiez que ce fichier n'est pas protégé en écriture.")
                      .arg(CheminIni()),
                  QStringLiteral("Attention"), ui::Icone::Exclamation);
        return;
    }
    Session& s = session();
    s.SymboleMonnaie = ui->Text2->text().trimmed();
    // Les écrans ouverts à partir de maintenant montrent les montants ainsi.
    MajFormatMontant(static_cast<int>(ValeurNumerique(VirguleVersPoint(ui->Text1->text()))));
    EcrireReglage(QStringLiteral("Options"), QStringLiteral("Demarrage"),
                  ui->Check1->isChecked() ? QStringLiteral("1") : QStringLiteral("0"));
    accept();
}

void Options::Command2_Click() {
    Retour();
}

QStringList SectionsFenetres() {
    return {QStringLiteral("BalanceForm"),  QStringLiteral("BalanceTree1"),
            QStringLiteral("BilanForm"),    QStringLiteral("BilanTree1"),
            QStringLiteral("BilanTree2"),   QStringLiteral("JournalForm"),
            QStringLiteral("JournalTree1"), QStringLiteral("PrembilForm"),
            QStringLiteral("PrembilTree1"), QStringLiteral("PrembilTree2"),
            QStringLiteral("ResultatForm"), QStringLiteral("ResultatTree1"),
            QStringLiteral("ResultatTree2")};
}

void ReinitialiserFenetres() {
    for (const QString& section : SectionsFenetres())
        EffacerReglage(section);
}

void Options::Command3_Click() {
    ReinitialiserFenetres();
    ui::Boite(QStringLiteral("Les tailles des fenêtre ont été réinitialisées à leur taille "
                             "d'origine."),
              QStringLiteral("Maroval"), ui::Icone::Information);
}

} // namespace ecran
