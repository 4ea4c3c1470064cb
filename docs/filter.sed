# Blanks what is no part of a reader's interface: friends, and, unless a comment stands before it, declarations of explicit
# instantiations and plain copies. A concrete transform is shown as derived from the public base behind the templates
# that it is made of. Keeps the numbers of the lines.
#
# Every header gets a page, with what it declares outside of classes.
#
# Pictures of the guides are named alone, as they stand beside the pages.
s|](\.\./pictures/|](|
1s|^#pragma once$|/** @file */ &|
:comment
/^ *\/\/\//{
    n
    /^ *\/\/\//b comment
    b class
}
/^extern template/{
    :instantiation
    /;/!{
        N
        b instantiation
    }
    s/[^\n]//g
}
s/^ *friend [A-Za-z]*;$//
/^ *\([A-Za-z0-9]*\)(const \1&[ a-z]*)[a-z =]*;$/s/.*//
/^ *[A-Za-z0-9]*& operator=(const [A-Za-z0-9]*&[ a-z]*)[a-z =]*;$/s/.*//
:class
s/public details::ConcreteTransform\([23]\)d<.*>/public BaseLinearGeometricTransform\1d/
