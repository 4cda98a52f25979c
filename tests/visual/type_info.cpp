// The class to whose table of functions the compiler's records of types point. Compiled without such records of its
// own.
class type_info
{
public:
    virtual ~type_info();
};
type_info::~type_info()
{
}
type_info g_first; // brings the table
