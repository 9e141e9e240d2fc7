namespace corvanta {
class Homeless;
}
