#include "tests/diagram/view/ViewFixture.h"

#include <QAccessible>

namespace diagram::testing {

class Accessible : public ViewTest {
protected:
    Accessible() : a(AddNode("a", 50, 50)), b(AddNode("b", 250, 150)), link(AddLink(a, b)) {
        a.SetText(QStringLiteral("Start\r\nhere"));
        b.SetText(QStringLiteral("End"));
        Settle();
        QAccessible::setActive(true);
    }
    ~Accessible() override { QAccessible::setActive(false); }
    QAccessibleInterface &List() { return *QAccessible::queryAccessibleInterface(view.get()); }
    QAccessibleInterface &Child(int index) { return *List().child(index); }

    Node &a, &b;
    Link &link;
};

TEST_F(Accessible, View_ListsNodesThenLinks) {
    EXPECT_EQ(List().role(), QAccessible::List);
    EXPECT_FALSE(List().text(QAccessible::Name).isEmpty());
    ASSERT_GE(List().childCount(), 3);
    EXPECT_EQ(Child(0).text(QAccessible::Name), QStringLiteral("Start here"));
    EXPECT_EQ(Child(1).text(QAccessible::Name), QStringLiteral("End"));
    EXPECT_EQ(Child(2).text(QAccessible::Name), QStringLiteral("Start here to End"));
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(Child(i).isValid());
        EXPECT_EQ(Child(i).role(), QAccessible::ListItem);
        EXPECT_EQ(Child(i).parent(), &List());
    }
    for (int i = 0; i < List().childCount(); ++i) EXPECT_EQ(List().indexOfChild(List().child(i)), i);
    EXPECT_EQ(List().child(-1), nullptr);
}

TEST_F(Accessible, LinkWithText_IsCalledByIt) {
    link.SetText(QStringLiteral("leads to"));
    EXPECT_EQ(Child(2).text(QAccessible::Name), QStringLiteral("leads to"));
    EXPECT_EQ(Child(2).text(QAccessible::Description), QStringLiteral("Link, Start here to End"));
}

TEST_F(Accessible, Description_TellsWhatTheDescriberSaysAndTheNumberOfLinks) {
    EXPECT_EQ(Child(0).text(QAccessible::Description), QStringLiteral("Node, 1 link"));
    AddLink(b, a);
    view->SetDescriber([](const Item &item) {
        return item.AsNode() ? QStringLiteral("Level ") + item.AsNode()->Key() : QString();
    });
    EXPECT_EQ(Child(0).text(QAccessible::Description), QStringLiteral("Level a, Node, 2 links"));
    EXPECT_EQ(Child(2).text(QAccessible::Description), QStringLiteral("Link, Start here to End"));
}

TEST_F(Accessible, Rect_IsWhereTheItemIsShown) {
    const QPoint corner = view->viewport()->mapToGlobal(QPoint(0, 0));
    EXPECT_EQ(Child(0).rect().translated(-corner), QRect(50, 50, 100, 60));
    view->ZoomAt(200, QPointF());
    EXPECT_EQ(Child(0).rect().translated(-corner), QRect(100, 100, 200, 120));
    EXPECT_TRUE(Child(2).rect().intersects(Child(0).rect().adjusted(-2, -2, 2, 2)));
}

TEST_F(Accessible, ChildAt_FindsWhatLiesThere) {
    const auto at = [&](const QPoint &pixels) {
        const QPoint global = view->viewport()->mapToGlobal(pixels);
        return List().childAt(global.x(), global.y());
    };
    EXPECT_EQ(at(Middle(a)), &Child(0));
    EXPECT_EQ(at(At((ToQPointF(link.Route()[0]) + ToQPointF(link.Route()[1])) / 2)), &Child(2));
    EXPECT_EQ(at(QPoint(600, 500)), nullptr);
}

TEST_F(Accessible, State_TellsSelectionFocusAndSight) {
    view->setFocus();
    EXPECT_TRUE(Child(0).state().selectable);
    EXPECT_FALSE(Child(0).state().selected);
    a.SetSelected(true);
    b.SetSelected(true);
    EXPECT_TRUE(Child(0).state().selected);
    EXPECT_FALSE(Child(0).state().focused);
    EXPECT_TRUE(Child(1).state().focused);
    EXPECT_EQ(List().focusChild(), &Child(1));
    EXPECT_FALSE(Child(0).state().offscreen);
    a.SetLeft(5000 * 15);
    EXPECT_TRUE(Child(0).state().offscreen);
    a.SetHidden(true);
    EXPECT_TRUE(Child(0).state().invisible);
    EXPECT_FALSE(Child(0).state().selectable);
}

TEST_F(Accessible, Actions_SelectAndFocus) {
    QAccessibleActionInterface *first = Child(0).actionInterface();
    QAccessibleActionInterface *second = Child(1).actionInterface();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->actionNames().size(), 2);
    first->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(a.Selected());
    second->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&b});
    EXPECT_TRUE(view->hasFocus());
    EXPECT_EQ(events.Count("AfterSelect"), 2);
    second->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(surface.SelectedNodes().empty());
    Child(2).actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(link.Selected());
}

TEST_F(Accessible, ItemThatIsNotSelectable_HasNoActions) {
    a.SetSelectable(false);
    EXPECT_TRUE(Child(0).actionInterface()->actionNames().isEmpty());
}

TEST_F(Accessible, SelectionByTheKeyboard_MovesTheFocus) {
    view->setFocus();
    Key(Qt::Key_Tab);
    EXPECT_EQ(List().focusChild(), &Child(0));
    EXPECT_TRUE(Child(0).state().focused);
    Key(Qt::Key_Tab);
    EXPECT_EQ(List().focusChild(), &Child(1));
    EXPECT_FALSE(Child(0).state().selected);
}

TEST_F(Accessible, ItemThatGoes_TakesItsEntryAlong) {
    const int count = List().childCount();
    AddNode("c", 300, 300);
    Settle();
    EXPECT_EQ(List().childCount(), count + 1);
    const QAccessible::Id id = QAccessible::uniqueId(&Child(1));
    surface.Remove(b);
    Settle();
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
    EXPECT_EQ(List().childCount(), count - 1);
    EXPECT_EQ(Child(1).text(QAccessible::Name), QStringLiteral("Node")) << "without text";
}

TEST_F(Accessible, ViewThatGoes_TakesItsEntriesAlong) {
    const QAccessible::Id list = QAccessible::uniqueId(&List());
    const QAccessible::Id entry = QAccessible::uniqueId(&Child(0));
    view.reset();
    EXPECT_EQ(QAccessible::accessibleInterface(list), nullptr);
    EXPECT_EQ(QAccessible::accessibleInterface(entry), nullptr);
}

TEST_F(Accessible, ViewMadeWhileAnAssistantRuns_ListsItsItems) {
    SurfaceView other(surface);
    other.show();
    Settle();
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(&other);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), QStringLiteral("End"));
}

TEST_F(Accessible, Words_AreTheProducts) {
    view->SetWords({QStringLiteral("Idea"), QStringLiteral("Thread")});
    b.SetText(QString());
    EXPECT_EQ(Child(0).text(QAccessible::Description), QStringLiteral("Idea, 1 thread"));
    EXPECT_EQ(Child(1).text(QAccessible::Name), QStringLiteral("Idea"));
    EXPECT_EQ(Child(2).text(QAccessible::Description), QStringLiteral("Thread, Start here to Idea"));
    EXPECT_TRUE(view->accessibleDescription().startsWith(QStringLiteral("Ideas and the threads")));
    EXPECT_EQ(Child(0).text(QAccessible::Value), QStringLiteral("Start\r\nhere"));
}

// What an assistant is told, as "event name" of the item.
class Notices : public Accessible {
protected:
    Notices() {
        view->SetAssistant([this](QAccessibleEvent &event) {
            const QAccessibleInterface *entry = event.accessibleInterface();
            const char *name = NameOf(event.type());
            if (!name) return;
            told << QLatin1String(name) + QLatin1Char(' ') +
                        (entry && !event.object() ? entry->text(QAccessible::Name) : QStringLiteral("list"));
        });
        Settle();
        told.clear();
    }
    static const char *NameOf(QAccessible::Event type) {
        struct Row {
            QAccessible::Event type;
            const char *name;
        };
        static constexpr Row kRows[] = {{QAccessible::Focus, "focus"},
                                        {QAccessible::SelectionAdd, "selected"},
                                        {QAccessible::SelectionRemove, "unselected"},
                                        {QAccessible::NameChanged, "renamed"},
                                        {QAccessible::ObjectCreated, "created"},
                                        {QAccessible::ObjectDestroyed, "destroyed"},
                                        {QAccessible::ObjectReorder, "changed"},
                                        {QAccessible::SelectionWithin, "many"}};
        for (const Row &row : kRows)
            if (row.type == type) return row.name;
        return nullptr;
    }
    QString Told() {
        Settle();
        return std::exchange(told, {}).join(QLatin1Char(';'));
    }
    QStringList told;
};

TEST_F(Notices, Tab_TellsSelectionAndFocus) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(Told(), QStringLiteral("selected Start here;focus Start here"));
    Key(Qt::Key_Tab);
    EXPECT_EQ(Told(), QStringLiteral("unselected Start here;selected End;focus End"));
}

TEST_F(Notices, CandidateOfALinkByKeys_IsTold) {
    Key(Qt::Key_Tab);
    Told();
    Key(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(Told(), QStringLiteral("focus End"));
    EXPECT_EQ(List().focusChild(), &Child(1));
    EXPECT_TRUE(Child(1).state().focused);
    EXPECT_FALSE(Child(0).state().focused);
    EXPECT_EQ(Child(1).text(QAccessible::Description), QStringLiteral("Link from Start here, Node, 1 link"));
    Key(Qt::Key_Tab);
    EXPECT_EQ(Told(), QStringLiteral("focus Start here"));
    Key(Qt::Key_Escape);
    EXPECT_EQ(Told(), QString()) << "the focus is where it was";
    EXPECT_EQ(Child(1).text(QAccessible::Description), QStringLiteral("Node, 1 link"));
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Child(1).text(QAccessible::Description), QStringLiteral("Link to Start here, Node, 1 link"));
    Key(Qt::Key_Return);
    EXPECT_TRUE(Told().endsWith(QStringLiteral("focus End to Start here")));
}

TEST_F(Notices, EditedText_IsTold) {
    b.SetSelected(true);
    Told();
    Key(Qt::Key_F2);
    Type("Goal");
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(Told().contains(QStringLiteral("renamed Goal")));
}

TEST_F(Notices, NewAndRemovedItems_AreTold) {
    Node &c = AddNode("c", 300, 300);
    c.SetText(QStringLiteral("New"));
    EXPECT_EQ(Told(), QStringLiteral("created New;changed list;renamed New"));
    Child(1);
    surface.Remove(b);
    EXPECT_EQ(Told(), QStringLiteral("destroyed ;changed list")) << "it has no name any more";
}

TEST_F(Notices, ManyChanges_AreToldOnce) {
    for (int i = 0; i < 300; ++i) AddNode("", 10 * i, 400, 5, 5).SetSelected(true);
    const QString many = Told();
    EXPECT_TRUE(many.contains(QStringLiteral("many list")));
    EXPECT_LT(many.count(QLatin1Char(';')), 5);
}

TEST_F(Notices, WithoutAListener_NothingIsCollected) {
    view->SetAssistant({});
    QAccessible::setActive(false);
    a.SetSelected(true);
    EXPECT_EQ(Told(), QString());
}
} // namespace diagram::testing
