// What the tests of the forms for levels and groups share: a window with the pools of the template, which are
// the levels "1", "2", "12" and "12 Important" and the groups "Sales" and "O'Brien".
#pragma once

#include "dialogs/frmGroups.h"
#include "dialogs/frmLevels.h"
#include "tests/Controls.h"
#include "tests/document/MapTest.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace dialogs::testing {

template <typename Form, typename Argument>
class NamesTest : public document::testing::MapTest {
protected:
    Form &Open() {
        form = std::make_unique<Form>(argument(), nullptr);
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
        return *form;
    }
    virtual Argument &argument() = 0;

    void Press(const char *button) { Find<QPushButton>(button).click(); }
    template <typename Widget>
    Widget &Find(const char *name) {
        return tests::ControlOf<Widget>(*form, name);
    }
    NameList &List() { return *form->lvwColor(); }
    QTreeWidgetItem &Row(int at) { return *List().topLevelItem(at); }
    void Select(int at) { List().setCurrentItem(&Row(at)); }
    QStringList Names() {
        QStringList names;
        for (int at = 0; at < List().topLevelItemCount(); ++at) names << Row(at).text(0);
        return names;
    }
    // The field in which a name is being typed; null for none.
    QLineEdit *Editor() {
        for (QLineEdit *editor : List().viewport()->template findChildren<QLineEdit *>())
            if (editor->isVisible()) return editor;
        return nullptr;
    }
    // Types over the name that is being edited and ends with Enter.
    void Type(const QString &name) {
        QLineEdit *editor = Editor();
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        editor->insert(name);
        bool isTold = false;
        QObject here;
        QObject::connect(&List(), &NameList::LabelEdited, &here, [&] { isTold = true; }); // behind the form
        QTest::keyClick(editor, Qt::Key_Return);
        ASSERT_TRUE(QTest::qWaitFor([&] { return isTold; }));
    }
    void Rename(int row, const QString &name) {
        Select(row);
        Press("cmdEdit");
        Type(name);
    }
    bool IsOpen() { return form->isVisible(); }

    std::unique_ptr<document::MemoryWindow> window = NewWindow();
    std::unique_ptr<Form> form;
};

} // namespace dialogs::testing
