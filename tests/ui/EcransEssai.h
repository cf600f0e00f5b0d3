#pragma once
// Petits écrans de la pile modale pour les tests : "Command1" ouvre la suite,
// "Command2" "<-Retour", "Command3" "&Quitter".

#include "ui/EcranModal.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <functional>

class EcranEssai : public ui::EcranModal {
public:
    EcranEssai(const QString& nom, QStringList* fermetures, QWidget* parent = nullptr)
        : ui::EcranModal(parent) {
        setObjectName(nom);
        setWindowTitle(nom);
        auto* disposition = new QVBoxLayout(this);
        auto* suite = new QPushButton(QStringLiteral("Suivant->"), this);
        suite->setObjectName(QStringLiteral("Command1"));
        auto* retour = new QPushButton(QStringLiteral("<-Retour"), this);
        retour->setObjectName(QStringLiteral("Command2"));
        auto* quitter = new QPushButton(QStringLiteral("&Quitter"), this);
        quitter->setObjectName(QStringLiteral("Command3"));
        disposition->addWidget(suite);
        disposition->addWidget(retour);
        disposition->addWidget(quitter);
        connect(suite, &QPushButton::clicked, this, [this] {
            if (ouvrirSuite) ouvrirSuite(this);
        });
        connect(retour, &QPushButton::clicked, this, &ui::EcranModal::Retour);
        connect(quitter, &QPushButton::clicked, this, [this] { Quitter(); });
        if (fermetures)
            connect(this, &QDialog::finished, this,
                    [this, fermetures] { fermetures->append(objectName()); });
    }
    std::function<void(EcranEssai*)> ouvrirSuite;
};
