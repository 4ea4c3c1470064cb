"""Printers for gdb of the library's vectors, matrices and results.

    (gdb) source tools/gdb/ovrix_printers.py
    (gdb) print data
    $1 = Vector of 3 = {1, 2.5, -4}
    (gdb) print matrix
    $2 = Matrix of 2 x 3 = {{1, 2, 3}, {4, 5, 6}}
    (gdb) print result
    $3 = failure, "Not enough data"

The Debian package of the headers puts this file where gdb loads it on its own.
"""

import gdb
import gdb.printing


def first_element(array):
    """The address of the first element of an unbounded_array or a bounded_array of uBLAS."""
    data = array["data_"]
    return data[0].address if data.type.strip_typedefs().code == gdb.TYPE_CODE_ARRAY else data


def text_of(string):
    """The text of a std::string, whose members clang tells the debugger only on demand."""
    try:
        return string["_M_dataplus"]["_M_p"].string(length=int(string["_M_string_length"]))
    except gdb.error:
        start = string.address.cast(gdb.lookup_type("char").pointer().pointer())[0]
        length = string.address.cast(gdb.lookup_type("unsigned long").pointer())[1]
        return start.string(length=int(length))


class VectorPrinter:
    """A vector or bounded_vector of uBLAS."""

    def __init__(self, value):
        self._array = value["data_"]
        self._size = int(self._array["size_"])

    def to_string(self):
        return "Vector of %d" % self._size

    def children(self):
        element = first_element(self._array)
        for i in range(self._size):
            yield "[%d]" % i, element[i]

    def display_hint(self):
        return "array"


class MatrixPrinter:
    """A matrix or bounded_matrix of uBLAS, one child for each row; rows stand one behind the other in memory."""

    def __init__(self, value):
        self._nb_rows = int(value["size1_"])
        self._nb_columns = int(value["size2_"])
        self._array = value["data_"]

    def to_string(self):
        return "Matrix of %d x %d" % (self._nb_rows, self._nb_columns)

    def children(self):
        if self._nb_columns == 0:
            return
        element = first_element(self._array)
        row_type = element.type.strip_typedefs().target().array(self._nb_columns - 1)
        for i in range(self._nb_rows):
            yield "[%d]" % i, (element + i * self._nb_columns).cast(row_type.pointer()).dereference()

    def display_hint(self):
        return "array"


class ResultPrinter:
    """A ProcessingResult: its outcome, and its message if it has one."""

    def __init__(self, value):
        self._outcome = value["_outcome"]
        self._message = value["_message"]

    def to_string(self):
        outcome = str(self._outcome)
        if self._outcome.type.strip_typedefs().code == gdb.TYPE_CODE_BOOL:
            outcome = "success" if self._outcome else "failure"
        message = text_of(self._message)
        return '%s, "%s"' % (outcome, message) if message else outcome


def make_printers():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("OVRIXMath")
    ublas = "^boost::numeric::ublas::"
    row_major = "boost::numeric::ublas::basic_row_major<"
    printers.add_printer("vector", ublas + "(bounded_)?vector<", VectorPrinter)
    printers.add_printer("matrix", ublas + "matrix<[^,]*, " + row_major, MatrixPrinter)
    printers.add_printer("bounded_matrix", ublas + "bounded_matrix<[^,]*, [^,]*, [^,]*, " + row_major, MatrixPrinter)
    printers.add_printer("ProcessingResult", "^ovrix::ProcessingResult<", ResultPrinter)
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), make_printers(), replace=True)
