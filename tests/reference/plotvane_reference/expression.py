"""The expression object: precedence climbing over a stream of tokens, statements, formatting."""

from . import calculus, catalogue
from .failure import Failure, NotComparable
from .lexing import ListTokens, TextTokens, literal_value, require_room
from .number_rules import binary_text, is_numeric, patterned_text, radix_text, text_of, to_number

DEEPEST_NESTING = 1024
PARTNERS = {"(": ")", "[": "]", "{": "}"}
CLOSING = set(PARTNERS.values())
# Operator: the highest level at which it applies. Its right operand is read one level higher.
BINARY = {
    "e": 13, "^": 12, "*": 10, "/": 10, "\\": 9, "mod": 8, "+": 7, "-": 7,
    "==": 6, "<": 6, ">": 6, "<>": 6, "<=": 6, ">=": 6,
    "and": 5, "or": 4, "xor": 3, "eqv": 2, "imp": 1,
}  # fmt: skip
POSTFIX = {"!": 12, "%": 12}
STORE = {"->": 1, "=>": 1}
SIGN_OPERAND_LEVEL = 11
NOT_OPERAND_LEVEL = 6


class Shared:
    """What all expression objects of one program share: the table, the library, nesting and work counted."""

    def __init__(self, table, mathematics, most_work=None):
        self.table = table
        self.mathematics = mathematics
        self.functions = catalogue.catalogue(mathematics)
        self.depth = 0
        self.work = 0
        self.most_work = most_work


class Expression:
    def __init__(self, shared, mode="decimal", places=0, degrees=False, numeric_only=False):
        self.shared = shared
        self.mode = mode
        self.places = places
        self.degrees = degrees
        self.numeric_only = numeric_only

    @property
    def table(self):
        return self.shared.table

    def private_expression(self):
        """The object on which a calculus operation evaluates: same table and angle mode, plain numbers only."""
        return Expression(self.shared, degrees=self.degrees, numeric_only=True)

    # Whole lines

    def evaluate(self, text, record=None):
        return self._evaluate(TextTokens(text, record))

    def replay(self, tokens):
        return self._evaluate(ListTokens(tokens))

    def _evaluate(self, source):
        self.source = source
        self._advance()
        result = self._level(1) if self.numeric_only else self._formatted_statement()
        while self.kind in (";", ":"):
            self._advance()
            if self.kind not in (";", ":"):
                result = text_of(result) + " : " + text_of(self._formatted_statement())
        if self.kind:
            raise self._error(1)
        if self.numeric_only and not is_numeric(result):
            raise self._error(8)
        return result

    def _formatted_statement(self):
        value = self._level(1)
        if self.mode == "decimal" or (self.mode == "fixed" and isinstance(value, bool)):
            return value if self.mode == "decimal" else text_of(value)
        if self.mode == "fixed":
            rounded = self.shared.mathematics.round(to_number(value), float(self.places))
            return patterned_text(rounded, self.places)
        if self.mode == "binary":
            return "&B" + binary_text(int(self.shared.mathematics.truncate(to_number(value))))
        whole = self.shared.mathematics.whole(value, 32)
        return "&H" + radix_text(whole, "X") if self.mode == "hexadecimal" else "&O" + radix_text(whole, "o")

    # Tokens and names

    def _advance(self):
        self.kind, self.spelling, self.radix = self.source.next()

    def _error(self, number, popped=""):
        return Failure.custom_error(number, self.spelling, popped)

    def _taken(self, result):
        self._advance()
        return result

    def read(self, name):
        """The value of a name, or None for one that the table does not hold."""
        found = self.table.get(name)
        if found is None:
            return None
        self.shared.mathematics.inexactness.mark(found[1])
        return (found[0],)

    def store(self, name, value):
        if not self.table.change(name, value, self.shared.mathematics.inexactness.tolerance):
            raise Failure.custom_error(9)

    # The climbing loop

    def _level(self, level):
        self.shared.depth += 1
        try:
            if self.shared.depth > DEEPEST_NESTING:
                raise Failure(standard=28)
            self._count_work()
            result = self._operand()
            while True:
                operator = self.kind
                if level <= BINARY.get(operator, 0):
                    self._advance()
                    result = self._binary(operator, result, self._level(BINARY[operator] + 1))
                elif level <= POSTFIX.get(operator, 0):
                    self._advance()
                    result = self._postfix(operator, result)
                elif level <= STORE.get(operator, 0):
                    self._advance()
                    if self.kind != "id":
                        raise self._error(10)
                    self.store(self.spelling, result)
                    self._advance()
                else:
                    return result
        finally:
            self.shared.depth -= 1

    def _count_work(self):
        self.shared.work += 1
        if self.shared.most_work and self.shared.work > self.shared.most_work:
            raise NotComparable()

    def _postfix(self, operator, value):
        number = to_number(value)
        return self.shared.mathematics.factorial(number) if operator == "!" else number / 100

    def _binary(self, operator, a, b):
        m = self.shared.mathematics
        if operator in ("==", "<", ">", "<>", "<=", ">="):
            return m.compare(operator, a, b)
        if operator in ("and", "or", "xor", "eqv", "imp"):
            return m.logical(operator, a, b)
        operation = {
            "e": m.scientific, "^": m.power, "*": m.multiply, "/": m.divide, "\\": m.whole_divide,
            "mod": m.remainder, "+": m.add, "-": m.subtract,
        }[operator]  # fmt: skip
        return operation(to_number(a), to_number(b))

    # Operands

    def _operand(self):
        kind, spelling = self.kind, self.spelling
        if kind == "num":
            return self._taken(literal_value(spelling, self.radix))
        if kind == "id":
            self._advance()
            return self._identifier(spelling)
        if kind in PARTNERS:
            self._advance()
            value = self._level(1)
            self._close(kind)
            return value
        if kind in ("-", "+"):
            self._advance()
            value = self._level(SIGN_OPERAND_LEVEL)
            return -to_number(value) if kind == "-" else value
        if kind == "not":
            self._advance()
            return self.shared.mathematics.logical_not(self._level(NOT_OPERAND_LEVEL))
        if kind in ("++", "--"):
            self._advance()
            if self.kind != "id":
                raise self._error(1)
            return self._taken(self._step(self.spelling, kind)[1])
        raise self._error(1)

    def _close(self, opened):
        if self.kind != PARTNERS[opened]:
            raise self._error(2, popped=opened)
        self._advance()

    def _identifier(self, name):
        if self.kind == "=":
            self._advance()
            value = self._level(1)
            self.store(name, value)
            return value
        if self.kind in ("++", "--"):
            return self._taken(self._step(name, self.kind)[0])
        if name in catalogue.CALCULUS:
            return self._calculus(catalogue.CALCULUS[name])
        if name in self.shared.functions:
            return self._function(self.shared.functions[name])
        found = self.read(name)
        if found is None:
            raise self._error(12)
        return found[0]

    def _step(self, name, operator):
        """Adds or takes 1 and stores; gives the old and the new value. An unknown name counts as 0."""
        old = (self.read(name) or (0.0,))[0]
        new = self.shared.mathematics.add(to_number(old), 1.0 if operator == "++" else -1.0)
        self.store(name, new)
        return old, new

    # Calls

    def _arguments(self, readers):
        """A bracketed list; each argument is read by the reader of its place, the rest as values."""
        opened = self.kind
        if opened not in PARTNERS:
            raise self._error(14)
        self._advance()
        arguments = []
        if self.kind not in CLOSING:
            while True:
                place = len(arguments)
                arguments.append(readers[place]() if place < len(readers) else self._level(1))
                if self.kind != ",":
                    break
                self._advance()
            if self.kind not in CLOSING:
                raise self._error(15)
        self._close(opened)
        return arguments

    def _check_count(self, arguments, least, most):
        if not least <= len(arguments) <= most:
            raise self._error(4 if len(arguments) < least else 5)

    def _function(self, entry):
        arguments = self._arguments([])
        self._check_count(arguments, entry[0], entry[1])
        return catalogue.call(self.shared.mathematics, entry, arguments, self.degrees)

    def _calculus(self, operation):
        readers = [self._recorded_argument, self._name_argument]
        ordered = operation == "nth derivative"
        if ordered:
            readers.insert(0, lambda: self._level(1))
        arguments = self._arguments(readers)
        least = {"sum": 4, "integral": 4, "derivative": 3, "nth derivative": 4}[operation]
        self._check_count(arguments, least, least + 1)
        order = self.shared.mathematics.whole(arguments.pop(0), 16) if ordered else None
        numbers = [to_number(argument) for argument in arguments[2:]]
        work = calculus.Calculus(self, arguments[0], arguments[1])
        if operation == "sum":
            return work.sum(*numbers)
        if operation == "integral":
            return work.integral(*numbers)
        return work.nth_derivative(order, *numbers) if ordered else work.derivative(*numbers)

    def _recorded_argument(self):
        """Tokens up to the comma or closing bracket that ends the argument; inside, only depth counts."""
        tokens = []
        depth = 0
        while self.kind and (depth > 0 or (self.kind != "," and self.kind not in CLOSING)):
            depth += (self.kind in PARTNERS) - (self.kind in CLOSING)
            require_room(tokens)
            tokens.append((self.kind, self.spelling, self.radix))
            self._advance()
        if not tokens:
            raise self._error(1)
        require_room(tokens)  # for the end of input that ends every list
        return tokens

    def _name_argument(self):
        if self.kind != "id":
            raise self._error(13)
        return self._taken(self.spelling)
