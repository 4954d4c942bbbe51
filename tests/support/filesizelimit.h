#ifndef FILESIZELIMIT_H
#define FILESIZELIMIT_H

#include <csignal>
#include <sys/resource.h>

// A full disk for the length of one scope: a file-size limit of the process, so that writes
// past it fail with EFBIG (the signal it would raise is ignored meanwhile).
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_old);
        rlimit limit = m_old;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_old {};
    void (*m_oldHandler)(int);
};

#endif
