#include "entry/SaisDC.h"

#include "entry/DonneesSaisie.h"
#include "entry/SaisDC2.h"
#include "session/Session.h"
#include "ui/Boite.h"
#include "ui/Sablier.h"
#include "ui_SaisDC.h"

#include <QMouseEvent>

namespace ecran {

SaisDC::SaisDC(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::SaisDC>()) {
    FixerContexteAide(8);
    ui->setupUi(this);
    for (QRadioButton* o : {ui->Option1, ui->Option2, ui->Option3, ui->Option4, ui->Option5,
                            ui->Option10, ui->Option11, ui->Option12, ui->Option13, ui->Option14}) {
        connect(o, &QRadioButton::clicked, this, &SaisDC::Option_Click);
        o->installEventFilter(this);
    }
    connect(ui->Command1, &QPushButton::clicked, this, &SaisDC::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &SaisDC::Command2_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &SaisDC::Command4_Click);
    Form_Load();
}

SaisDC::~SaisDC() = default;

void SaisDC::Form_Load() {
    saisie::Vider();
    ui->Frame2->hide();
}

void SaisDC::Option_Click() {
    const bool tresorerie = ui->Option3->isChecked();
    if (tresorerie == ui->Frame2->isVisible()) return;
    ui->Frame2->setVisible(tresorerie);
    adjustSize();
}

bool SaisDC::eventFilter(QObject* objet, QEvent* evenement) {
    // Un double clic sur un journal ou une opération vaut "&Suite->".
    if (evenement->type() == QEvent::MouseButtonDblClick) {
        auto* o = qobject_cast<QRadioButton*>(objet);
        if (o) {
            o->setChecked(true);
            Option_Click();
            QMetaObject::invokeMethod(this, &SaisDC::Command1_Click, Qt::QueuedConnection);
            return true;
        }
    }
    return ui::EcranModal::eventFilter(objet, evenement);
}

void SaisDC::Command1_Click() {
    struct Choix {
        QRadioButton* option;
        const char* journal;
    };
    QString journal;
    for (const Choix& c :
         {Choix{ui->Option1, "V"}, Choix{ui->Option2, "A"}, Choix{ui->Option3, "T"},
          Choix{ui->Option4, "D"}, Choix{ui->Option5, "I"}})
        if (c.option->isChecked()) journal = QLatin1String(c.journal);
    if (journal.isEmpty()) {
        ui::Boite(QStringLiteral("Sélectionnez un Journal avant de faire Suite"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return;
    }
    QString ligne;
    if (journal == QLatin1String("T")) {
        for (const Choix& c :
             {Choix{ui->Option10, "31"}, Choix{ui->Option11, "32"}, Choix{ui->Option12, "33"},
              Choix{ui->Option13, "34"}, Choix{ui->Option14, "37"}})
            if (c.option->isChecked()) ligne = QLatin1String(c.journal);
        if (ligne.isEmpty()) {
            ui::Boite(QStringLiteral("Sélectionnez un menu dans la liste de droite"),
                      QStringLiteral("Maroval"), ui::Icone::Exclamation);
            return;
        }
    }
    {
        ui::Sablier sablier;
        saisie::Vider();
        session().JournalSaisie = journal;
        if (!ligne.isEmpty()) session().LigneMenuSaisie = ligne;
    }
    SaisDC2 suite(this);
    suite.exec();
}

void SaisDC::Command2_Click() {
    Retour();
}

void SaisDC::Command4_Click() {
    Quitter();
}

} // namespace ecran
