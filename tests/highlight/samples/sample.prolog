% Families and lists.
:- module(family, [ancestor/2, total/2]).
:- use_module(library(lists)).
:- dynamic parent/2.

parent(ann, bob).
parent(bob, 'Carl the "Great"').

/* Somebody's parent,
   or further up. */
ancestor(X, Y) :- parent(X, Y).
ancestor(X, Z) :-
    parent(X, Y),
    ancestor(Y, Z).

total([], 0).
total([H|T], Sum) :-
    total(T, Rest),
    Sum is H * 0x10 + Rest mod 7 - 1.5e3.

max(X, Y, X) :- X >= Y, !.
max(_, Y, Y).

greeting --> [hello], name.
greeting --> [good, morning], !, name.
name --> [N], { atom(N), N \== nobody }.

show(List) :-
    (   List = []
    ->  format("nothing~n")
    ;   member(X, List),
        \+ var(X),
        format("~w: \"~a\"~n", [X, text]),
        fail
    ;   true
    ).

run :-
    findall(A-D, ancestor(A, D), Pairs),
    msort(Pairs, Sorted),
    catch(show(Sorted), error(E, _), (print_message(error, E), halt(1))),
    forall(between(1, 3, N), (assertz(seen(N)), nl)),
    Code = 0'a, Code =:= 97, X = f(Code), X =.. [f|Args], writeln(Args).

:- initialization(run).
